#include "batch/batch_windows.h"

#include "platform/window/window_system.h"
#include "text/scoped_value.h"

BatchWindows::BatchWindows(WindowSystem& windows, Messages& messages, const String& appFolder,
                           const WhileLocked& whileLocked)
    : Ring(appFolder),
      Working2(windows),
      ASCIIWarn(windows),
      UndoMFF(windows, messages, Ring, whileLocked),
      UndoMFF2(windows, messages, Ring, State, UndoMFF, whileLocked),
      MultiErrors(windows, messages, State, UndoMFF, UndoMFF2),
      MFFCancel(windows, messages, State, UndoMFF, UndoMFF2),
      windows_(windows),
      messages_(messages) {
  UndoMFF.OnChosen = [this] { UndoMFF2.ShowModal(); };
}

void BatchWindows::ShowUndo() {
  State.AutoUndo = false;
  UndoMFF.Unload();
  UndoMFF.LoadOnce();
  if (UndoMFF.NothingToUndo)
    UndoMFF.Unload();
  else
    UndoMFF.ShowModal();
}

void BatchWindows::UndoAbortedRun() {
  const ScopedValue automatic(State.AutoUndo, true);
  if (!UndoMFF.Choose(State.Run)) return messages_.Notice(kRestoreFailed);
  // Its load undoes.
  UndoMFF2.LoadOnce();
  windows_.DoEvents();
  UndoMFF2.Unload();
}
