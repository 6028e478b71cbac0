#pragma once
// A group of controls of one kind under one name, told apart by an index that need not begin at 0. Elements
// may come and go at run time.

#include <functional>
#include <memory>
#include <tuple>
#include <vector>

#include "controls/control.h"

namespace lumidex {

// The part of an array that does not depend on the kind of its elements.
class ControlArrayBase {
 public:
  ControlArrayBase(const ControlArrayBase&) = delete;
  ControlArrayBase& operator=(const ControlArrayBase&) = delete;

  int First() const { return indexes_.front(); }
  int Last() const { return indexes_.back(); }
  int Count() const { return static_cast<int>(indexes_.size()); }
  bool Has(int index) const;

  // Destroys what came at run time.
  virtual void UnloadAll() = 0;

 protected:
  ControlArrayBase(Form& owner, std::string_view name, int first, int last);
  virtual ~ControlArrayBase();

  // Place of an element among the members; raises Subscript when there is none.
  std::size_t PlaceOf(int index) const;
  // Takes a new index in and says where its member belongs; raises InvalidCall for one that exists or is
  // below 0.
  std::size_t Insert(int index);
  // Gives up the index of an element that came at run time; raises Subscript when there is none, InvalidCall
  // for one of the design.
  std::size_t Erase(int index);
  // Makes a new element like the first one, but invisible.
  static void Resemble(Control& element, const Control& first);
  static void Announce(Control& element);

  Form& owner_;
  const std::string name_;
  const int designFirst_, designLast_;
  std::vector<int> indexes_;  // ascending, one for each member
};

template <class T>
class ControlArray final : public ControlArrayBase {
 public:
  // Elements `first` to `last` belong to the design. What is handed over by reference must live as long as
  // the array, which makes its later elements of the same.
  template <class... Args>
  ControlArray(Form& owner, std::string_view name, int first, int last, Args&&... args)
      : ControlArrayBase(owner, name, first, last),
        make_([&owner, kept = std::tuple<Args...>(std::forward<Args>(args)...)](std::string itsName) {
          return std::apply(
              [&](auto&... each) { return std::make_unique<T>(owner, std::move(itsName), each...); }, kept);
        }) {
    for (int index = first; index <= last; ++index) members_.push_back(make_(IndexedName(name_, index)));
  }

  // Raises Subscript for an element that does not exist.
  T& operator()(int index) { return *members_[PlaceOf(index)]; }

  // A new element, with the present properties of the first one, invisible. Raises InvalidCall for an index
  // that exists or is below 0.
  T& Load(int index) {
    const std::size_t place = Insert(index);
    auto made = make_(IndexedName(name_, index));
    T& element = *made;
    members_.insert(members_.begin() + static_cast<std::ptrdiff_t>(place), std::move(made));
    Resemble(element, *members_.front());
    if (wire_) wire_(element, index);
    Announce(element);
    return element;
  }

  // Destroys an element that came at run time, also from inside its own event. Raises Subscript when there is
  // none, InvalidCall for one of the design.
  void Unload(int index) {
    const std::size_t place = Erase(index);
    const std::unique_ptr<T> leaving = std::move(members_[place]);
    members_.erase(members_.begin() + static_cast<std::ptrdiff_t>(place));
    leaving->Leave();
  }

  void UnloadAll() override {
    for (int index = Last(); index > designLast_; index = Last()) Unload(index);
    for (int index = First(); index < designFirst_; index = First()) Unload(index);
  }

  // Runs `wire` for every element, those that come later too: the place to give events their handlers.
  void Wire(std::function<void(T& element, int index)> wire) {
    wire_ = std::move(wire);
    for (std::size_t place = 0; place < members_.size(); ++place) wire_(*members_[place], indexes_[place]);
  }

  auto begin() { return members_.begin(); }
  auto end() { return members_.end(); }

 private:
  std::function<std::unique_ptr<T>(std::string)> make_;
  std::vector<std::unique_ptr<T>> members_;
  std::function<void(T&, int)> wire_;
};

}  // namespace lumidex
