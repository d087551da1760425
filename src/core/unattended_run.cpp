#include "core/unattended_run.h"

#include "core/auto_batch.h"
#include "core/auto_run.h"
#include "tools/catalogue.h"

namespace {

// The cleaned text is left on the clipboard. The exit status.
int CleanClipboard(Session& session) {
  ::Clipboard& clipboard = session.Windows.Clipboard();
  // Whatever else is on the clipboard stays there.
  if (!clipboard.HasText()) return 0;
  session.RichTextBox1.SetText(clipboard.GetText());
  session.Document.CheckSetLock();
  if (session.RichTextBox1.Locked)
    throw RuntimeError(kEncryptedFile, "The text on the clipboard is encrypted");
  ToolContext context = session.Context();
  const bool standard = HasSwitch(session.Fields.CommandLine, Word::EmailStd);
  FindTool(standard ? kEmailStandard : kEmailPoem)->Run(context, {});
  if (session.Messages.NoticeCount() > 0) return 1;
  clipboard.SetText(session.RichTextBox1.Text());
  session.Windows.DoEvents();
  return 0;
}

}  // namespace

int RunUnattended(Session& session, const JoinedLine& given) {
  const StringView line = session.Fields.CommandLine;
  const Job job = JobOf(line);
  if (job == Job::Clipboard) return CleanClipboard(session);
  TestCombinations(line);
  return job == Job::Batch ? RunBatch(session, given) : RunAuto(session);
}
