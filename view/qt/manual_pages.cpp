#include "view/qt/manual_pages.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTextDocument>

namespace zol::view::qt {
namespace {

bool page_holds(const QString& path, const QString& words) {
    QFile file(path);
    if (!file.open(QFile::ReadOnly)) return false;
    QTextDocument document;
    document.setHtml(QString::fromUtf8(file.readAll()));
    return !document.find(words).isNull();
}

int place_of(const QString& file, const QList<ManualContents::Page>& pages) {
    for (int i = 0; i < pages.size(); ++i)
        if (pages[i].file == file) return i;
    return -1;
}

} // namespace

ManualContents read_manual_contents(const QString& language_folder) {
    ManualContents contents;
    QFile file(language_folder + "/contents.txt");
    if (!file.open(QFile::ReadOnly)) return contents;
    const QStringList lines = QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts);
    for (const QString& line : lines) {
        const auto key = line.section('\t', 0, 0), text = line.section('\t', 1);
        if (key.endsWith(".htm"))
            contents.pages.append({key, text});
        else
            contents.words[key] = text;
    }
    return contents;
}

ManualPage::ManualPage(QString folder, QWidget* parent)
    : QTextBrowser(parent), folder_(std::move(folder)) {
    setObjectName("Page");
    setOpenExternalLinks(false);
}

bool ManualPage::is_inside(const QUrl& url) const {
    if (!url.isLocalFile()) return false;
    return QFileInfo(url.toLocalFile()).canonicalFilePath().startsWith(folder_ + "/");
}

QVariant ManualPage::loadResource(int type, const QUrl& url) {
    const QUrl whole = source().resolved(url);
    return is_inside(whole) ? QTextBrowser::loadResource(type, whole) : QVariant();
}

void ManualPage::doSetSource(const QUrl& url, QTextDocument::ResourceType type) {
    // A link that leads out of the manual would leave an empty page.
    const QUrl whole = source().resolved(url);
    if (is_inside(whole)) QTextBrowser::doSetSource(whole, type);
}

bool ManualPage::find_next(const QString& words, const QList<ManualContents::Page>& pages) {
    if (words.isEmpty()) return false;
    if (find(words)) return true;
    const QFileInfo here(source().toLocalFile());
    const int start = place_of(here.fileName(), pages);
    for (int step = 1; step < pages.size(); ++step) {
        const auto& page = pages[(start + step) % pages.size()];
        const QString path = here.dir().filePath(page.file);
        if (!page_holds(path, words)) continue;
        setSource(QUrl::fromLocalFile(path));
        moveCursor(QTextCursor::Start);
        return find(words);
    }
    const QTextCursor before = textCursor();
    moveCursor(QTextCursor::Start);
    if (find(words)) return true;
    setTextCursor(before);
    return false;
}

} // namespace zol::view::qt
