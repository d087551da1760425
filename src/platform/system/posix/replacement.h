#pragma once
// How a file can be given new content.

#include <functional>

#include "platform/system/byte_file.h"
#include "platform/system/posix/scratch_file.h"
#include "platform/system/posix/sys.h"

// The file that a path stands for, behind all links. The file need not be there, not even when
// links lead to it; its folder must.
String ResolveTarget(const String& path);

// Failures are RuntimeError; the target is then as it was.
class Replacement {
 public:
  // Before a scratch file is made in a folder.
  using OnFolder = std::function<void(const String& folder)>;

  // Opens what is there, or makes a file that is no more open to others than the model. prefix: of
  // the scratch file.
  Replacement(const String& path, const String& model, StringView prefix = kScratchPrefix,
              const OnFolder& onFolder = {});

  // To be renamed over the target; else that is rewritten in place.
  bool ByRename() const { return byRename_; }
  // Whether there is an old file.
  bool HasOld() const { return old_ != nullptr; }
  // Behind all links.
  const String& Target() const { return target_; }
  const ScratchFile& Scratch() const { return scratch_; }
  // What the old file was at the start.
  const struct stat& Status() const { return status_; }

  // Where the new content is to be written, once. Failures name the target.
  OutputFile Content();
  // The content is complete: gives it the mode, and tells what only shows when a file is closed.
  void Finish();
  // Makes the content permanent.
  void Flush();
  // Puts it in place of the old one; flush the folder behind it. False when the system refuses
  // that.
  bool Rename();
  // Writes it over the old one, with flushes of its own.
  void Rewrite();

 private:
  void MakeScratchLike(const String& model, const String& folder, StringView prefix);

  String target_;
  struct stat status_ = {};
  sys::SharedDescriptor old_;
  ScratchFile scratch_;
  // For the rewriting in place.
  sys::SharedDescriptor content_;
  bool byRename_ = false;
};
