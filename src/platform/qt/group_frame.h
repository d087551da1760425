#pragma once
// Groups whose controls are all hidden vanish with them.

#include <QWidget>

// Hidden by a call, not just because its window has not been shown yet.
bool HiddenByProgram(const QWidget& widget);

void MarkAsGroup(QWidget& frame);
// Shows or hides a group, and the groups round it, by what is in it. Passes over other widgets.
void UpdateGroup(QWidget* frame);
