#pragma once
// The widgets of controls: one function per kind. Each returns a widget without a parent, tied to
// its control both ways.

#include <QWidget>

#include "platform/qt/bindings.h"
#include "platform/window/bars.h"
#include "platform/window/file_lists.h"
#include "platform/window/rich_text_box.h"

QWidget* MakeView(Label& label, Bindings& bindings);
QWidget* MakeView(Image& image, Bindings& bindings);
QWidget* MakeView(CommandButton& button, Bindings& bindings);
QWidget* MakeView(TextBox& box, Bindings& bindings);
QWidget* MakeView(CheckBox& box, Bindings& bindings);
QWidget* MakeView(OptionButton& button, Bindings& bindings);
QWidget* MakeView(ListBox& box, Bindings& bindings);
QWidget* MakeView(DiffList& list, Bindings& bindings);
QWidget* MakeView(ComboBox& box, Bindings& bindings);
QWidget* MakeView(TabStrip& strip, Bindings& bindings);
QWidget* MakeView(ProgressBar& bar, Bindings& bindings);
QWidget* MakeView(DriveListBox& box, Bindings& bindings);
QWidget* MakeView(DirListBox& box, Bindings& bindings);
QWidget* MakeView(FileListBox& box, Bindings& bindings);
QWidget* MakeView(RichTextBox& box, Bindings& bindings);
QWidget* MakeView(ToolBar& bar, Bindings& bindings);
QWidget* MakeView(StatusBar& bar, Bindings& bindings);

// The widget of any control, with what all controls have: visible, enabled, tool tip, focus.
QWidget* MakeControlView(Control& control, Bindings& bindings);

// Puts a plain text where Qt would take a text with tags for HTML.
QString PlainToolTip(const String& text);
