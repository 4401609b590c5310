// Reads the manual's folder and shows one of its pages. Only regular files inside that folder,
// given by its canonical path, are opened, whatever a page, a link or a name refers to. Sizes and
// counts are limited, so a damaged file cannot block the program.
#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>
#include <QTextBrowser>

#include <optional>

namespace zol::view::qt {

// Whether `path`, with its links resolved, is a file that the manual may open: a regular, readable
// file in `folder` or below it, not larger than a page or picture can be.
bool is_manual_file(const QString& folder, const QString& path);
// The content of such a file; nothing if it is not one or cannot be read.
std::optional<QByteArray> read_manual_file(const QString& folder, const QString& path);

// The content of contents.txt in the folder of a language, each text cut to a length that can be
// shown; empty if the file cannot be read.
struct ManualContents {
    struct Page {
        QString file, title;
    };
    QMap<QString, QString> words; // captions of the window, by key: title, search, back, not_found
    QList<Page> pages;            // in reading order
};

ManualContents read_manual_contents(const QString& folder, const QString& language_folder);

// Shows one page. It follows links to other pages of `folder`, and ignores all others.
class ManualPage : public QTextBrowser {
  public:
    explicit ManualPage(QString folder, QWidget* parent = nullptr);

    // Selects the next place with `words`, on this page, then on the following ones of `pages`,
    // then from the first one on. Returns false if there is none; the page does not change then.
    // Case does not matter.
    bool find_next(const QString& words, const QList<ManualContents::Page>& pages);

  private:
    bool find_and_show(const QString& words);
    QVariant loadResource(int type, const QUrl& url) override;
    void doSetSource(const QUrl& url, QTextDocument::ResourceType type) override;
    bool event(QEvent* event) override;

    const QString folder_;
};

} // namespace zol::view::qt
