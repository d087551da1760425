#pragma once

// While such an object lives, SIGINT does not end the program: it is asked for. One that is
// ignored, as in the background of a shell, stays so. One object at a time.
class InterruptAsked {
 public:
  InterruptAsked();
  InterruptAsked(const InterruptAsked&) = delete;
  InterruptAsked& operator=(const InterruptAsked&) = delete;
  ~InterruptAsked();

  // Whether the signal has come since the object was made.
  bool Came() const;

 private:
  void (*before_)(int);
};
