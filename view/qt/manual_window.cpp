#include "view/qt/manual_window.h"

#include <QDir>
#include <QFileInfo>
#include <QTextBrowser>
#include <QUrl>

namespace zol::view::qt {
namespace {

class Pages : public QTextBrowser {
  public:
    explicit Pages(QString folder) : folder_(std::move(folder)) { setOpenExternalLinks(false); }

  private:
    QVariant loadResource(int type, const QUrl& url) override {
        const QUrl whole = source().resolved(url);
        if (!whole.isLocalFile()) return {};
        const QString path = QFileInfo(whole.toLocalFile()).canonicalFilePath();
        if (!path.startsWith(folder_ + "/")) return {};
        return QTextBrowser::loadResource(type, whole);
    }

    const QString folder_;
};

} // namespace

std::unique_ptr<QWidget> make_manual_window(const std::string& file, const std::string& topic) {
    const QDir beside = QFileInfo(QString::fromStdString(file)).absoluteDir();
    const QString folder = QFileInfo(beside.filePath("manual")).canonicalFilePath();
    const QString page = folder + "/" + QString::fromStdString(topic);
    if (folder.isEmpty() || !QFileInfo(page).isReadable() || !QFileInfo(page).isFile()) return {};
    auto window = std::make_unique<Pages>(folder);
    window->setObjectName("Manual");
    window->setWindowTitle("Manual");
    window->resize(760, 560);
    window->setSource(QUrl::fromLocalFile(page));
    return window;
}

} // namespace zol::view::qt
