// A file dropped anywhere on the window: taken by the window as a whole, so that a text box
// under the mouse does not paste the file's name instead.
#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

#include "gui/control.h"

namespace gui {
namespace {

class FileDropFilter : public QObject {
  public:
    FileDropFilter(QWidget* window, std::function<void(const QString&)> handler)
        : QObject(window), window_(window), handler_(std::move(handler)) {}

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        const QEvent::Type type = event->type();
        if (type != QEvent::DragEnter && type != QEvent::DragMove && type != QEvent::Drop)
            return false;
        auto* widget = qobject_cast<QWidget*>(watched);
        if (!widget || widget->window() != window_) return false;
        auto* drop = static_cast<QDropEvent*>(event);
        const QString path = LocalFile(drop->mimeData());
        if (path.isEmpty()) return false;
        drop->setDropAction(Qt::CopyAction);
        drop->accept();
        if (type == QEvent::Drop) handler_(path);
        return true;
    }

  private:
    // The one local file a drag brings; empty for anything else.
    static QString LocalFile(const QMimeData* data) {
        if (!data || !data->hasUrls() || data->urls().size() != 1) return {};
        const QUrl url = data->urls().constFirst();
        return url.isLocalFile() ? url.toLocalFile() : QString();
    }

    QWidget* window_;
    std::function<void(const QString&)> handler_;
};

}  // namespace

void Form::onFileDrop(std::function<void(const QString&)> handler) {
    widget_->setAcceptDrops(true);
    qApp->installEventFilter(new FileDropFilter(widget_, std::move(handler)));
}

}  // namespace gui
