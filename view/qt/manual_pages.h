// The folder that holds the manual's pages, and the view of one of them. Of that folder, given by
// its canonical path, regular files are opened, and nothing outside it is.
#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>
#include <QTextBrowser>

#include <optional>

namespace zol::view::qt {

// Whether `path` leads to a file that the manual may open, by whatever links: a regular one in what
// lies in `folder`, of a size that a page or a picture can have.
bool is_manual_file(const QString& folder, const QString& path);
// All of it; nothing if it is none of the manual's or cannot be read.
std::optional<QByteArray> read_manual_file(const QString& folder, const QString& path);

// What contents.txt in a language's folder says, each text up to a length that can be shown; empty
// where that file cannot be read.
struct ManualContents {
    struct Page {
        QString file, title;
    };
    QMap<QString, QString> words; // of the window, by key: title, search, back, not_found
    QList<Page> pages;            // in the order of reading
};

ManualContents read_manual_contents(const QString& folder, const QString& language_folder);

// Shows pages and pictures from `folder` and what lies in it, and nothing else.
class ManualPage : public QTextBrowser {
  public:
    explicit ManualPage(QString folder, QWidget* parent = nullptr);

    // Moves to the next place of `words`, on this page or on those behind it in `pages`, and from
    // the first again; false if there is none. Capitals do not count.
    bool find_next(const QString& words, const QList<ManualContents::Page>& pages);

  private:
    QVariant loadResource(int type, const QUrl& url) override;
    void doSetSource(const QUrl& url, QTextDocument::ResourceType type) override;
    bool event(QEvent* event) override;

    const QString folder_;
};

} // namespace zol::view::qt
