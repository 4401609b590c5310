// The folder that holds the manual's pages, and the view of one of them.
#pragma once

#include <QList>
#include <QMap>
#include <QString>
#include <QTextBrowser>

namespace zol::view::qt {

// What contents.txt in a language's folder says; empty where that file is missing.
struct ManualContents {
    struct Page {
        QString file, title;
    };
    QMap<QString, QString> words; // of the window, by key: title, search, back, not_found
    QList<Page> pages;            // in the order of reading
};

ManualContents read_manual_contents(const QString& language_folder);

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
    bool is_inside(const QUrl& url) const;

    const QString folder_;
};

} // namespace zol::view::qt
