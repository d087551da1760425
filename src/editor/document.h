#pragma once
// The one document: New, Open, Save, Save As and leaving it, with their prompts and titles.

#include <optional>

#include "editor/messages.h"
#include "editor/titles.h"
#include "platform/window/common_dialog.h"
#include "platform/window/rich_text_box.h"
#include "state/shared_fields.h"
#include "text/runtime_error.h"

// What the document needs of the application around it.
class DocumentHost {
 public:
  virtual ~DocumentHost() = default;
  // Puts the options' fonts and folders back after the text was replaced.
  virtual void ApplyOptions() = 0;
  // The undo engine and Find begin anew with the text as it stands.
  virtual void StartAnew() = 0;
  // Something the user should know that is not worth a window.
  virtual void Tell(StringView message) = 0;
  // The document's file, its format or its state has another value.
  virtual void DocumentChanged() = 0;
};

class Document {
 public:
  Document(SharedFields& fields, RichTextBox& editor, CommonDialog& dialog, Messages& messages,
           DocumentHost& host);

  // The file that the text belongs to; empty for none.
  const String& Path() const { return file_.Path; }
  // What the title bar shows.
  String Title() const;

  void New();
  // Asks for a file and opens it.
  void BOpenFile();
  // Opens a file that was dropped on the window.
  void OpenDropped(const String& path);
  // Opens the file named on the command line: the path stands in the title. RuntimeError when it
  // can't be read; the document has not changed then.
  void OpenNamed(const String& path);
  // A new document that the first Save writes to this path. Where something stands there that could
  // not be opened, Save asks for another name first.
  void NewNamed(const String& path);
  void BSaveFile() { BSaveFile(false); }
  void SaveAs() { BSaveFile(true); }
  // Asks about unsaved changes. False: the user goes on with this document.
  bool MayExit();

  // Locks the text and shows it as encrypted where it holds a marker.
  void CheckSetLock();
  // The editor's text has changed.
  void TextHasChanged();
  // What the next save writes. The choice of a line end also makes an LF alone in the text a line
  // end, so that the file has one kind only.
  void ChooseEncoding(Encoding encoding, bool mark);
  void ChooseLineEnds(LineEnds lineEnds);

 private:
  struct File {
    String Path;
    // In the title: the short name where a dialog gave it, else the path.
    String ShownName;
    // Named on the command line and not written yet.
    bool IsNew = false;
  };

  bool MayLeave(StringView question);
  // The encrypted file that goes back to read-only when the document is left; empty for none.
  String FileToRelock() const;
  void Open(File file, const String& relock);
  void OpenOrTell(File file, const String& relock);
  void Load(File file);
  // Names what saves that were broken off have left beside the file.
  void TellLeftovers();
  // Empty where the user cancels or a read-only file is to stay what it is.
  std::optional<File> FileToSaveTo(bool asNew);
  void BSaveFile(bool asNew);
  void Save(File file);
  void FormatHasChanged();

  SharedFields& fields_;
  RichTextBox& editor_;
  CommonDialog& dialog_;
  Messages& messages_;
  DocumentHost& host_;

  File file_;
  bool encrypted_ = false;
  // The file that could not be opened last: the title shows it until the next one.
  String failedName_;
};
