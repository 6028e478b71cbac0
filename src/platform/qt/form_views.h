#pragma once
// All windows of the program. Makes a form's view when the form is first shown, and knows which one the user
// works in.

#include <QTimer>
#include <functional>
#include <memory>
#include <vector>

#include "platform/qt/form_view.h"

namespace lumidex {

class FormViews final {
 public:
  using Factory = std::function<std::unique_ptr<FormView>(FormViews&, Form&)>;

  // `factory` makes the view of a form.
  explicit FormViews(Factory factory);
  ~FormViews();

  // Watches a form, which must live longer than these views or until Close. Its window comes so many
  // milliseconds after the form is shown, if it is still shown then.
  void Attach(Form& form, int millisecondsLate = 0);
  // Deletes all views and lets go of the forms.
  void Close();

  const Units& GetUnits();
  // Null while the form has never been shown.
  FormView* ViewOf(const Form& form) const;
  FormView* ViewOf(WindowHandle form) const;
  // The attached form of that handle; null when there is none.
  Form* FormOf(WindowHandle form) const;
  // The view that has the keyboard, or had it last; null before the first one.
  FormView* Active() const { return active_; }
  // The window that a dialog is to stand before.
  QWidget* DialogParent() const;

  // Keeps the form's window, present or future, above all others.
  void MakeTopmost(WindowHandle form);
  bool IsTopmost(const Form& form) const;

  // For the views alone.
  void NoteActive(FormView& view) { active_ = &view; }
  // Stands while the library looks at windows again afterwards: while a routine runs in the midst of the
  // focus going from one to another, and while a dialog is open, which may stand before any. Until then no
  // window is deleted, whatever is served meanwhile.
  class Keeping;
  // True when the window is kept for as long as that lasts, and deleted then.
  bool Keeps(FormView& view);

 private:
  struct Entry {
    Form* form;
    std::unique_ptr<FormView> view;
    Connection visibility;
    int millisecondsLate = 0;
    QTimer late;
    bool topmost = false;
  };
  Entry* Find(WindowHandle form) const;
  void FollowVisibility(Entry& entry);
  // Deletes the window once the gesture that it may be answering is over.
  void GiveBack(std::unique_ptr<FormView> view);
  void Show(Entry& entry);
  void DeleteKept();

  Factory factory_;
  std::vector<std::unique_ptr<Entry>> entries_;
  std::vector<QPointer<FormView>> leaving_;
  std::vector<QPointer<FormView>> kept_;  // of those, and to be deleted when nothing keeps them
  int keeping_ = 0;
  QTimer untilNoneIsKept_;
  QPointer<FormView> active_;
  std::unique_ptr<Units> units_;
};

class FormViews::Keeping {
 public:
  explicit Keeping(FormViews& views) : views_(views) { ++views_.keeping_; }
  ~Keeping();
  Keeping(const Keeping&) = delete;
  Keeping& operator=(const Keeping&) = delete;

 private:
  FormViews& views_;
};

}  // namespace lumidex
