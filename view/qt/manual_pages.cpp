#include "view/qt/manual_pages.h"

#include "view/qt/face.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFontMetricsF>
#include <QImageReader>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTextDocument>

#include <fcntl.h>

#include <algorithm>

namespace zol::view::qt {
namespace {

constexpr qint64 largest_file = 1 << 20;     // 16 times the largest file that ships
constexpr QSize largest_picture(4096, 4096); // the pictures that ship are 680 wide
constexpr qsizetype longest_text =
    200; // of a caption or title; titles that ship have some 40 characters
constexpr qsizetype most_pages = 200; // 38 ship

// The path with all links resolved; empty if the file is not one of the manual.
QString real_manual_file(const QString& folder, const QString& path) {
    const QFileInfo file(QFileInfo(path).canonicalFilePath());
    const bool good = file.filePath().startsWith(folder + "/") && file.isFile() &&
                      file.isReadable() && file.size() > 0 && file.size() <= largest_file;
    return good ? file.filePath() : QString();
}

QImage picture_in(QByteArray content) {
    QBuffer bytes(&content);
    QImageReader reader(&bytes, "png");
    reader.setAutoDetectImageFormat(false); // other formats can refer to further files
    const QSize size = content.isEmpty() ? QSize() : reader.size();
    QImage picture;
    if (size.isValid() && size.boundedTo(largest_picture) == size) picture = reader.read();
    if (!picture.isNull()) return picture;
    QImage nothing(1, 1, QImage::Format_ARGB32_Premultiplied);
    nothing.fill(Qt::transparent);
    return nothing;
}

// The content as a resource of this type. Never null: for null the toolkit would open the named
// file itself, wherever it is.
QVariant resource_in(const QByteArray& content, int type) {
    if (type == QTextDocument::ImageResource) return picture_in(content);
    return content;
}

// A page whose references are not opened.
class LonePage : public QTextDocument {
  private:
    QVariant loadResource(int type, const QUrl&) override { return resource_in({}, type); }
};

// A quick test whether a page may contain the words: its characters without the tags. Building the
// document takes a hundred times longer, and most pages do not contain the words.
bool may_hold(const QString& html, const QString& words) {
    static const QRegularExpression marks("<[^>]*>|&[a-z]+;"), special("[<>&\\s]");
    if (words.contains(special)) return true; // may be written differently in the file
    return QString(html).remove(marks).contains(words, Qt::CaseInsensitive);
}

bool page_holds(const QByteArray& page, const QString& words) {
    const QString html = QString::fromUtf8(page);
    if (!may_hold(html, words)) return false;
    LonePage document;
    document.setHtml(html);
    return !document.find(words).isNull();
}

int place_of(const QString& file, const QList<ManualContents::Page>& pages) {
    for (int i = 0; i < pages.size(); ++i)
        if (pages[i].file == file) return i;
    return -1;
}

} // namespace

bool is_manual_file(const QString& folder, const QString& path) {
    return !real_manual_file(folder, path).isEmpty();
}

std::optional<QByteArray> read_manual_file(const QString& folder, const QString& path) {
    const QString name = real_manual_file(folder, path);
    if (name.isEmpty()) return std::nullopt;
    // Does not block, in case the name has become that of a pipe since.
    const int flags = O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY | O_NOFOLLOW;
    const int descriptor = ::open(QFile::encodeName(name).constData(), flags);
    QFile file;
    if (descriptor < 0 || !file.open(descriptor, QFile::ReadOnly, QFile::AutoCloseHandle))
        return std::nullopt;
    return file.read(largest_file);
}

ManualContents read_manual_contents(const QString& folder, const QString& language_folder) {
    ManualContents contents;
    const auto content = read_manual_file(folder, language_folder + "/contents.txt");
    if (!content) return contents;
    const QStringList lines = QString::fromUtf8(*content).split('\n', Qt::SkipEmptyParts);
    for (const QString& line : lines) {
        const auto key = line.section('\t', 0, 0);
        const auto text = line.section('\t', 1).left(longest_text);
        if (key.endsWith(".htm") && contents.pages.size() < most_pages)
            contents.pages.append({key, text});
        else if (!key.endsWith(".htm"))
            contents.words[key] = text;
    }
    return contents;
}

namespace {

// The pages' own style sheet is for other programs.
QByteArray without_style(const QByteArray& page) {
    static const QRegularExpression sheet("<style>.*</style>",
                                          QRegularExpression::DotMatchesEverythingOption);
    return QString::fromUtf8(page).remove(sheet).toUtf8();
}

// Widths of pictures are given for this line height and scaled with the font, never below their own
// size.
QByteArray sized_for(const QFont& font, const QByteArray& page) {
    constexpr double made_for_line_px = 18;
    const double scale = std::max(1.0, QFontMetricsF(font).height() / made_for_line_px);
    static const QRegularExpression width("(<img [^>]*width=\")(\\d+)");
    const QString text = QString::fromUtf8(page);
    QString sized;
    qsizetype done = 0;
    for (const auto& match : width.globalMatch(text)) {
        sized += text.mid(done, match.capturedStart() - done) + match.captured(1) +
                 QString::number(qRound(match.captured(2).toInt() * scale));
        done = match.capturedEnd();
    }
    return (sized + text.mid(done)).toUtf8();
}

// A style sheet with the colours of the program. Its sizes follow the font.
QString sheet_of_program(const QFont& font) {
    const int line = QFontMetrics(font).height();
    const QString rules = "body { margin: %1px; } p, ul, ol { margin-top: %2px; "
                          "margin-bottom: %2px; } td, th { padding: %3px; text-align: left; } "
                          "h1, h2, h3 { color: %4; } a { color: %5; } "
                          "th { background-color: %6; } code { background-color: %6; }";
    return rules.arg(line * 2 / 3)
        .arg(line / 2)
        .arg(line / 4)
        .arg(face::ink.name(), face::accent.name(), face::ground.name());
}

} // namespace

ManualPage::ManualPage(QString folder, QWidget* parent)
    : QTextBrowser(parent), folder_(std::move(folder)) {
    setObjectName("Page");
    setOpenExternalLinks(false);
    const double line = QFontMetricsF(font()).height();
    document()->setIndentWidth(1.6 * line); // the numbers of lists are in the indent
    document()->setDefaultStyleSheet(sheet_of_program(font()));
}

QVariant ManualPage::loadResource(int type, const QUrl& url) {
    const auto content = read_manual_file(folder_, source().resolved(url).toLocalFile());
    if (type == QTextDocument::HtmlResource)
        return sized_for(font(), without_style(content.value_or(QByteArray())));
    return resource_in(content.value_or(QByteArray()), type);
}

void ManualPage::doSetSource(const QUrl& url, QTextDocument::ResourceType type) {
    // A link out of the manual is ignored; following it would leave an empty page.
    const QUrl whole = source().resolved(url);
    if (is_manual_file(folder_, whole.toLocalFile())) QTextBrowser::doSetSource(whole, type);
}

// No tips: a page could give a link a tip with markup, and the toolkit would open the files named
// in it. No page of the manual has one.
bool ManualPage::event(QEvent* event) {
    return event->type() == QEvent::ToolTip || QTextBrowser::event(event);
}

// The text after a hit is what the reader wants, so the hit is shown near the top.
bool ManualPage::find_and_show(const QString& words) {
    if (!find(words)) return false;
    QScrollBar& bar = *verticalScrollBar();
    bar.setValue(bar.value() + cursorRect().top() - cursorRect().height());
    return true;
}

bool ManualPage::find_next(const QString& words, const QList<ManualContents::Page>& pages) {
    if (words.isEmpty()) return false;
    if (find_and_show(words)) return true;
    const QFileInfo here(source().toLocalFile());
    const int start = place_of(here.fileName(), pages);
    for (int step = 1; step < pages.size(); ++step) {
        const auto& page = pages[(start + step) % pages.size()];
        const QString path = here.dir().filePath(page.file);
        const auto content = read_manual_file(folder_, path);
        if (!content || !page_holds(*content, words)) continue;
        setSource(QUrl::fromLocalFile(path));
        moveCursor(QTextCursor::Start);
        return find_and_show(words);
    }
    const QTextCursor before = textCursor();
    moveCursor(QTextCursor::Start);
    if (find_and_show(words)) return true;
    setTextCursor(before);
    return false;
}

} // namespace zol::view::qt
