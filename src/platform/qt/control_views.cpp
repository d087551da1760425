#include "platform/qt/control_views.h"

#include <QTextDocument>
#include <QWidget>

#include "platform/qt/group_frame.h"
#include "platform/qt/strings.h"

namespace {

class Maker : public ControlVisitor {
 public:
  explicit Maker(Bindings& bindings) : bindings_(bindings) {}
  void Visit(Label& control) override { Make(control); }
  void Visit(Image& control) override { Make(control); }
  void Visit(CommandButton& control) override { Make(control); }
  void Visit(TextBox& control) override { Make(control); }
  void Visit(CheckBox& control) override { Make(control); }
  void Visit(OptionButton& control) override { Make(control); }
  void Visit(ListBox& control) override { Make(control); }
  void Visit(DiffList& control) override { Make(control); }
  void Visit(ComboBox& control) override { Make(control); }
  void Visit(TabStrip& control) override { Make(control); }
  void Visit(ProgressBar& control) override { Make(control); }
  void Visit(DriveListBox& control) override { Make(control); }
  void Visit(DirListBox& control) override { Make(control); }
  void Visit(FileListBox& control) override { Make(control); }
  void Visit(RichTextBox& control) override { Make(control); }
  void Visit(ToolBar& control) override { Make(control); }
  void Visit(StatusBar& control) override { Make(control); }

  QWidget* Widget = nullptr;

 private:
  template <class AnyControl>
  void Make(AnyControl& control) {
    Widget = MakeView(control, bindings_);
  }

  Bindings& bindings_;
};

}  // namespace

QString PlainToolTip(const String& text) {
  // A longer one would not fit on the screen.
  constexpr int kLongest = 1000;
  // Only what counts as markup is broken into lines.
  constexpr int kLine = 100;
  QString plain = ToQt(text);
  if (plain.size() > kLongest) plain = plain.left(kLongest) + QChar(0x2026);
  if (plain.size() > kLine)
    return QStringLiteral("<p style='white-space: pre-wrap'>%1</p>").arg(plain.toHtmlEscaped());
  return Qt::mightBeRichText(plain) ? plain.toHtmlEscaped() : plain;
}

QWidget* MakeControlView(Control& control, Bindings& bindings) {
  Maker maker(bindings);
  control.Accept(maker);
  QWidget* const widget = maker.Widget;
  // Showing a widget that has no parent yet would make it a window.
  if (!control.Visible) widget->hide();
  bindings.Watch(control.Visible, [&control, widget] {
    widget->setVisible(control.Visible);
    UpdateGroup(widget->parentWidget());
  });
  bindings.Follow(control.Enabled, [&control, widget] { widget->setEnabled(control.Enabled); });
  bindings.Follow(control.ToolTipText,
                  [&control, widget] { widget->setToolTip(PlainToolTip(control.ToolTipText)); });
  bindings.Follow(control.AccessibleName, [&control, widget] {
    if (!control.AccessibleName.Get().empty())
      widget->setAccessibleName(ToQt(control.AccessibleName));
  });
  bindings.Watch(control.FocusRequested, [widget] { widget->setFocus(Qt::OtherFocusReason); });
  return widget;
}
