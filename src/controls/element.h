#pragma once
// What forms and controls have in common: a name, properties that are known by name, and observers.

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "controls/property.h"
#include "controls/signal.h"
#include "ports/window_control.h"

namespace lumidex {

// An event with its one handler, the program's behaviour. Firing it without a handler does nothing.
template <class... Args>
class Event {
 public:
  using Handler = std::function<void(Args...)>;
  Event() = default;
  // Several events can have the same handler: one = other = Handler.
  Event& operator=(const Event& other) { return *this = other ? *other.handler_ : Handler(); }
  Event& operator=(Handler handler) {
    handler_ = handler ? std::make_unique<const Handler>(std::move(handler)) : nullptr;
    return *this;
  }
  void operator()(Args... args) const {
    if (!handler_) return;
    const Handler running = *handler_;  // stays alive should the handler, or this, go while it runs
    running(args...);
  }
  explicit operator bool() const { return handler_ != nullptr; }

 private:
  std::unique_ptr<const Handler> handler_;  // none for most of the thousands of events that windows have
};

class Element {
 public:
  explicit Element(std::string name) : name_(std::move(name)) {}
  virtual ~Element() = default;
  Element(const Element&) = delete;
  Element& operator=(const Element&) = delete;

  const std::string& Name() const { return name_; }
  // "ListBox", "Form"...
  virtual std::string_view Kind() const = 0;

  // The kept properties, those of the base classes first; go on with PropertyBase::Next.
  PropertyBase* FirstProperty() const { return first_; }
  // Null when there is none of that name.
  PropertyBase* FindProperty(std::string_view name) const;

  // A property by name, as text: also the computed ones of a kind, as "ListCount" or "List(3)". Nothing when
  // the kind has no such property.
  virtual std::optional<std::string> ReadProperty(std::string_view name);
  // As code writes it. False when there is no such property.
  virtual bool WriteProperty(std::string_view name, std::string_view text);

  WindowHandle hwnd() const { return reinterpret_cast<WindowHandle>(this); }

  // Some property has changed; observers look for themselves which.
  Signal<> Changed;
  // That property was written, with a new value or the old one.
  Signal<const PropertyBase&> Written;
  // It goes now: observers let go of it.
  Signal<> Ended;

  // Every property that is kept (not the computed ones) as its design, and back.
  virtual void KeepDesign();
  virtual void RestoreDesign();

 private:
  friend class PropertyBase;
  std::string name_;
  PropertyBase* first_ = nullptr;
  PropertyBase* last_ = nullptr;
};

// "List(12)" taken apart: the number when `name` is `call` with a number in brackets.
std::optional<int> Argument(std::string_view name, std::string_view call);

}  // namespace lumidex
