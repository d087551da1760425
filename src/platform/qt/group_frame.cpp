#include "platform/qt/group_frame.h"

#include <algorithm>

namespace {
constexpr char kGroup[] = "wordflurnGroup";
}

bool HiddenByProgram(const QWidget& widget) {
  return widget.isHidden() && widget.testAttribute(Qt::WA_WState_ExplicitShowHide);
}

void MarkAsGroup(QWidget& frame) { frame.setProperty(kGroup, true); }

void UpdateGroup(QWidget* frame) {
  if (!frame || !frame->property(kGroup).toBool()) return;
  const auto children = frame->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
  frame->setVisible(!std::all_of(children.begin(), children.end(),
                                 [](const QWidget* child) { return HiddenByProgram(*child); }));
  UpdateGroup(frame->parentWidget());
}
