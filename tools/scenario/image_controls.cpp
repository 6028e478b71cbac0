#include "scenario/image_controls.h"

#include "base/run_time_error.h"
#include "controls/gvbox.h"

namespace lumidex::scenario {

void ImageControls::Watch(App& app) {
  connections_.clear();
  for (Form* form : app.Forms()) {
    for (Control* control : form->Controls()) {
      auto* box = dynamic_cast<Gvbox*>(control);
      if (!box) continue;
      box->OnOperation = [this, name = box->Name()](const std::string& operation) { Note(name, operation); };
      connections_.push_back(box->Written.Connect([this, box](const PropertyBase& property) {
        Note(box->Name(), std::string(property.Name()) + " = " + property.AsText());
      }));
    }
  }
}

void ImageControls::Refuse(std::string operation, int first, int times, int error) {
  refusals_.push_back({std::move(operation), first - 1, times, error});
}

void ImageControls::Note(const std::string& control, const std::string& operation) {
  if (paused_ > 0) return;
  // Nothing stands behind an equal sign when the value is empty.
  const bool isEmpty = operation.ends_with(' ');
  if (logs_) log_.Add(control + "." + operation.substr(0, operation.size() - (isEmpty ? 1 : 0)));
  for (auto refusal = refusals_.begin(); refusal != refusals_.end(); ++refusal) {
    const bool isThis = operation == refusal->operation || operation.starts_with(refusal->operation + " ");
    if (!isThis || --refusal->before >= 0) continue;
    const auto error = static_cast<ErrorNumber>(refusal->error);
    if (--refusal->times == 0) refusals_.erase(refusal);
    throw RunTimeError(error);
  }
}

}  // namespace lumidex::scenario
