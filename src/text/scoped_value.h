#pragma once

// Gives a variable a value for as long as the object lives, and then the one from before.
template <typename Variable, typename Value>
class ScopedValue {
 public:
  ScopedValue(Variable& variable, Value value) : variable_(variable), before_(variable) {
    variable_ = value;
  }
  ScopedValue(const ScopedValue&) = delete;
  ScopedValue& operator=(const ScopedValue&) = delete;
  ~ScopedValue() { variable_ = before_; }

 private:
  Variable& variable_;
  Value before_;
};
