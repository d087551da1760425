#pragma once
// The ties between the controls of a form and their widgets. All end with this object.

#include <QObject>
#include <functional>
#include <type_traits>
#include <vector>

#include "platform/qt/event_guard.h"
#include "platform/window/property.h"

class Bindings {
 public:
  Bindings() = default;
  Bindings(const Bindings&) = delete;
  Bindings& operator=(const Bindings&) = delete;
  ~Bindings() {
    for (const auto& end : ends_) end();
  }

  // Runs `show` at each change of the property or signal.
  template <class Observable>
  void Watch(Observable& observable, Signal::Observer show) {
    kept_.push_back(observable.Observe(std::move(show)));
  }
  // The same, and once now.
  template <class T>
  void Follow(Property<T>& property, Signal::Observer show) {
    show();
    Watch(property, std::move(show));
  }
  // Runs a handler that takes all arguments of the Qt signal or none.
  template <class Sender, class Base, class... Args, class Handler>
  void On(Sender* sender, void (Base::*signal)(Args...), Handler handler) {
    QObject::connect(sender, signal, &context_, [handler](Args... args) mutable {
      RunGuarded([&] {
        if constexpr (std::is_invocable_v<Handler&, Args...>)
          handler(args...);
        else
          handler();
      });
    });
  }
  void AtEnd(std::function<void()> end) { ends_.push_back(std::move(end)); }

 private:
  QObject context_;
  std::vector<Signal::Subscription> kept_;
  std::vector<std::function<void()>> ends_;
};
