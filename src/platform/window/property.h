#pragma once
// A control's value: read and written like a field, and whoever shows it is told of each change.

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

// Observers in the order in which they came. One may be removed, or the whole signal destroyed,
// while it is emitted.
class Signal {
 public:
  using Observer = std::function<void()>;

  // Ends the observation when it is destroyed. May outlive the signal.
  class Subscription {
   public:
    Subscription() = default;
    Subscription(Subscription&&) = default;
    Subscription& operator=(Subscription&& other) {
      std::swap(slot_, other.slot_);
      return *this;
    }
    ~Subscription() {
      if (slot_) *slot_ = nullptr;
    }

   private:
    friend class Signal;
    explicit Subscription(std::shared_ptr<Observer> slot) : slot_(std::move(slot)) {}
    std::shared_ptr<Observer> slot_;
  };

  [[nodiscard]] Subscription Observe(Observer observer) {
    auto slot = std::make_shared<Observer>(std::move(observer));
    slots_.push_back(slot);
    return Subscription(slot);
  }

  void Emit() {
    std::erase_if(slots_, [](const auto& slot) { return !*slot; });
    const auto slots = slots_;
    for (const auto& slot : slots) {
      // A copy, since the observer may end its own subscription.
      if (const Observer observer = *slot) observer();
    }
  }

 private:
  std::vector<std::shared_ptr<Observer>> slots_;
};

template <class T>
class Property {
 public:
  Property() = default;
  Property(T value) : value_(std::move(value)) {}
  Property(const Property&) = delete;
  // The value only; each property keeps its own observers.
  Property& operator=(const Property& other) {
    Set(other.value_);
    return *this;
  }

  const T& Get() const { return value_; }
  operator const T&() const { return value_; }

  // Setting the value that is there already tells nobody.
  void Set(T value) {
    if (value == value_) return;
    value_ = std::move(value);
    changed_.Emit();
  }
  // Changes a large value where it is.
  template <class Work>
  void Change(Work work) {
    work(value_);
    changed_.Emit();
  }
  Property& operator=(T value) {
    Set(std::move(value));
    return *this;
  }
  template <class U>
  bool operator==(const U& other) const {
    return value_ == other;
  }

  [[nodiscard]] Signal::Subscription Observe(Signal::Observer observer) {
    return changed_.Observe(std::move(observer));
  }

 private:
  T value_{};
  Signal changed_;
};
