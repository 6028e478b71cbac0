#include "controls/texts.h"

namespace lumidex {

void Label::VisitProperties(const PropertyVisitor& visit) {
  Control::VisitProperties(visit);
  visit("Caption", Caption);
  visit("ForeColor", ForeColor);
  visit("BackColor", BackColor);
}

void TextBox::VisitProperties(const PropertyVisitor& visit) {
  Control::VisitProperties(visit);
  visit("Text", Text);
  visit("Locked", Locked);
  visit("MultiLine", MultiLine);
  visit("MaxLength", MaxLength);
}

void Frame::VisitProperties(const PropertyVisitor& visit) {
  Control::VisitProperties(visit);
  visit("Caption", Caption);
}

}  // namespace lumidex
