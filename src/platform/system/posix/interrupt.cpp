#include "platform/system/interrupt.h"

#include <csignal>

namespace {

volatile std::sig_atomic_t came = 0;

void Note(int) { came = 1; }

}  // namespace

InterruptAsked::InterruptAsked() {
  came = 0;
  before_ = std::signal(SIGINT, Note);
  if (before_ == SIG_IGN) std::signal(SIGINT, SIG_IGN);
}

InterruptAsked::~InterruptAsked() { std::signal(SIGINT, before_); }

bool InterruptAsked::Came() const { return came != 0; }
