#include "platform/qt/file_drop.h"

#include <QAbstractScrollArea>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

namespace {

// By bytes, since a name need not be valid UTF-8.
std::vector<String> LocalFiles(const QMimeData* data) {
  std::vector<String> paths;
  for (const QUrl& url : data->urls()) {
    if (!url.isLocalFile()) continue;
    const QByteArray path =
        QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1());
    paths.push_back(FromUtf8({path.data(), static_cast<std::size_t>(path.size())}));
  }
  return paths;
}

class FileDrop : public QObject {
 public:
  FileDrop(Form& form, QObject* parent) : QObject(parent), form_(&form) {}
  void End() { form_ = nullptr; }

  // The text box would take the names as text, so it is asked after this.
  bool eventFilter(QObject*, QEvent* event) override {
    switch (event->type()) {
      case QEvent::DragEnter:
      case QEvent::DragMove:
      case QEvent::Drop:
        return form_ && Take(static_cast<QDropEvent&>(*event));
      default:
        return false;
    }
  }

 private:
  bool Take(QDropEvent& event) {
    const auto paths = LocalFiles(event.mimeData());
    if (paths.empty()) return false;
    event.setDropAction(Qt::CopyAction);
    event.accept();
    if (event.type() == QEvent::Drop) RunGuarded([&] { form_->DropFiles(paths); });
    return true;
  }

  Form* form_;
};

}  // namespace

void AcceptFiles(Form& form, QWidget& window, Bindings& bindings) {
  auto* drop = new FileDrop(form, &window);
  window.setAcceptDrops(true);
  window.installEventFilter(drop);
  for (auto* area : window.findChildren<QAbstractScrollArea*>())
    area->viewport()->installEventFilter(drop);
  bindings.AtEnd([drop] { drop->End(); });
}
