// Undo and Find on large texts in the edit control of a window.
//
//   editing FILE WORD   FILE is searched for WORD, and every hit counted

#include <QApplication>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <malloc.h>
#include <vector>

#include "editor/cls_undo.h"
#include "platform/qt/qt_window_system.h"
#include "platform/system/text_file.h"
#include "text/find_text.h"

namespace {

constexpr std::size_t kLength = 10'000'000;

template <class Work>
double Milliseconds(Work work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
      .count();
}

double ResidentMegabytes() {
  std::ifstream statm("/proc/self/statm");
  double pages = 0;
  statm >> pages >> pages;
  return pages * 4096 / 1e6;
}

String Lines() {
  String text;
  for (int line = 0; text.size() < kLength; ++line)
    text += u"The quick brown fox jumps over the lazy dog, and the dog sleeps on by the river " +
            Str(line % 10000) + String(kCrLf);
  return text;
}

void Undoing(QtWindowSystem& windows) {
  const String file = u"bench_editing.txt";
  WriteTextFile(file, Lines(), {});
  SharedFields fields;
  const auto box = windows.CreateRichTextBox();
  malloc_trim(0);
  const double opening = Milliseconds([&] {
    box->LoadFile(file);
    box->SharedText();
  });
  std::remove(ToUtf8(file).c_str());
  std::printf("opening 10 MB                           %8.1f ms   memory %.0f MB\n", opening,
              ResidentMegabytes());
  clsUndo undo(windows, fields);
  box->OnChange = [&] { undo.ControlChanged(); };
  box->OnSelChange = [&] { undo.SelectionChanged(); };
  undo.AttachRichTextBox(*box, 1000);

  box->SetSelStart(kLength / 2);
  box->SetSelText(u"x");
  // The first one then finds no memory that opening has left behind.
  malloc_trim(0);
  const double first = Milliseconds([&] { undo.TakeUndoSnapShot(); });

  const std::size_t before = mallinfo2().uordblks;
  std::vector<double> snapshots;
  for (int i = 0; i < 1000; ++i) {
    box->SetSelText(u"y");
    snapshots.push_back(Milliseconds([&] { undo.TakeUndoSnapShot(); }));
  }
  std::sort(snapshots.begin(), snapshots.end());
  std::printf("snapshot of one letter in 10 MB         %8.1f ms   wanted < 50 (the first %.1f)\n",
              snapshots[snapshots.size() / 2], first);
  const auto grown = static_cast<double>(mallinfo2().uordblks - before) / 1e6;
  std::printf("memory of 1000 records of one letter    %8.2f MB   wanted < 1\n", grown);

  fields.ToolUndoPending = true;
  undo.Suspend(true);
  const String upper = UCase(box->Text());
  const double setting = Milliseconds([&] { box->SetText(upper); });
  undo.Suspend(false);
  const double undoing = Milliseconds([&] { undo.Undo(1); });
  std::printf(
      "a tool over 10 MB undone / setting text %8.2f      wanted <= 2 (%.0f ms / %.0f ms)\n",
      undoing / setting, undoing, setting);
}

void Finding(const char* file, const char* word) {
  const String text = ReadTextFile(FromUtf8(file)).Text;
  const String what = FromUtf8(word);
  int hits = 0;
  const double time = Milliseconds([&] {
    std::size_t start = 0;
    while (const auto hit = FindText(text, what, start, kMatchCase)) {
      ++hits;
      start = *hit + 1;
    }
  });
  std::printf("find: %d hits in %.4f s\n", hits, time / 1000);
}

}  // namespace

int main(int argc, char** argv) {
  // As the window module does.
  mallopt(M_MMAP_THRESHOLD, 32 << 20);
  mallopt(M_TRIM_THRESHOLD, 256 << 20);
  GuardedApplication application(argc, argv);
  QtWindowSystem windows;
  if (argc > 2)
    Finding(argv[1], argv[2]);
  else
    Undoing(windows);
}
