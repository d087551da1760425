// The edit control against the bare widget below it: loading, a key in the middle, memory.
//
//   edit_control [MEGABYTES of the text, 10] [MEGABYTES of the single line, 1]

#include <QApplication>
#include <QFile>
#include <QPlainTextEdit>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <memory>
#include <vector>

#include "platform/qt/qt_rich_text_box.h"

namespace {

constexpr int kRounds = 7;
constexpr std::size_t kMegabyte = 1'000'000;

double Milliseconds(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
      .count();
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

double ResidentMegabytes() {
  QFile file(QStringLiteral("/proc/self/statm"));
  if (!file.open(QIODevice::ReadOnly)) return 0;
  return file.readAll().split(' ').at(1).toDouble() * 4096 / static_cast<double>(kMegabyte);
}

String Lines(std::size_t length) {
  String text;
  text.reserve(length + 100);
  for (std::size_t line = 0; text.size() < length; ++line) {
    text += u"The quick brown fox jumps over the lazy dog, and the dog sleeps on by the river ";
    text += QString::number(line % 10000).toStdU16String() + String(kCrLf);
  }
  return text;
}

void Show(QWidget& widget) {
  widget.resize(800, 600);
  widget.show();
  QApplication::processEvents();
}

// From the key to the painted window, with what a status bar asks for.
double KeyInTheMiddle(QtRichTextBox& box, int rounds) {
  box.SetSelStart(box.TextLength() / 2);
  std::vector<double> times;
  for (int i = 0; i < rounds; ++i)
    times.push_back(Milliseconds([&] {
      QKeyEvent key(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, QStringLiteral("x"));
      QApplication::sendEvent(box.Widget(), &key);
      static_cast<void>(box.Caret());
      static_cast<void>(box.TextLength());
      QApplication::processEvents();
      box.Refresh();
    }));
  return Median(times);
}

// The median of all rounds but the first, which also pays for memory that later ones use again.
double Repeated(const std::function<void()>& load) {
  std::vector<double> times;
  for (int round = 0; round <= kRounds; ++round) times.push_back(Milliseconds(load));
  times.erase(times.begin());
  return Median(times);
}

}  // namespace

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  const auto argument = [&](int index, std::size_t otherwise) {
    return argc > index ? static_cast<std::size_t>(std::atoi(argv[index])) : otherwise;
  };
  const std::size_t length = argument(1, 10) * kMegabyte;
  const std::size_t lineLength = argument(2, 1) * kMegabyte;

  const String text = Lines(length);
  const double before = ResidentMegabytes();
  auto box = std::make_unique<QtRichTextBox>();
  Show(*box->Widget());
  box->SetText(text);
  const double growth = ResidentMegabytes() - before;
  std::printf("memory      %6.1f MB for %.1f MB: %.1f x\n", growth,
              static_cast<double>(text.size()) / kMegabyte,
              growth * kMegabyte / static_cast<double>(text.size()));
  std::printf("key         %6.2f ms\n", KeyInTheMiddle(*box, kRounds));
  std::printf("Text()      %6.1f ms\n", Repeated([&] { static_cast<void>(box->Text()); }));

  const double ours = Repeated([&] {
    box->SetText(u"");
    box->SetText(text);
  });
  QPlainTextEdit bare;
  bare.setUndoRedoEnabled(false);
  Show(bare);
  const QString bareText = QString::fromStdU16String(text);
  const double theirs = Repeated([&] {
    bare.setPlainText(QString());
    bare.setPlainText(bareText);
  });
  std::printf("load        %6.1f ms, bare widget %6.1f ms: %.2f x\n", ours, theirs, ours / theirs);

  const String line(lineLength, u'x');
  std::printf("single line %6.1f ms to load", Milliseconds([&] { box->SetText(line); }));
  std::printf(", %.1f ms a key\n", KeyInTheMiddle(*box, kRounds));
}
