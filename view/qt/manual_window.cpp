#include "view/qt/manual_window.h"

#include "view/qt/manual_pages.h"
#include "view/qt/plain_text.h"
#include "view/qt/window_edge.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QUrl>

#include <algorithm>

namespace zol::view::qt {
namespace {

constexpr int contents_width_lines = 14; // in line heights
constexpr QSize least_size(1000, 700);   // wide enough for contents and pictures
constexpr double wanted_share = 0.75;    // of the screen
constexpr QSize frame(0, 27);            // of a window: its title bar

// The file of the page `topic`, else the English page of that name, else an empty path.
QString page_of(const QString& folder, const QString& topic) {
    for (const QString& page : {topic, "uk/" + QFileInfo(topic).fileName()}) {
        const QString file = folder + "/" + page;
        if (is_manual_file(folder, file)) return file;
    }
    return {};
}

class ManualWindow : public QWidget {
  public:
    ManualWindow(const QString& folder, const QString& page)
        : contents_(read_manual_contents(folder, QFileInfo(page).path())) {
        setObjectName("Manual");
        setWindowTitle(plain_title(word("title", "Manual")));
        setFont(QApplication::font("QDialog")); // its size follows the main window
        give_edge(*this);
        const QSize room = screen()->availableSize() - frame;
        resize((room * wanted_share).expandedTo(least_size).boundedTo(room));
        list_ = new QListWidget(this);
        field_ = new QLineEdit(this);
        back_ = new QPushButton(plain_caption(word("back", "Back")), this);
        found_nothing_ = new QLabel(this);
        found_nothing_->setTextFormat(Qt::PlainText);
        found_nothing_->setText(word("not_found", "Not found"));
        page_ = new ManualPage(folder, this);
        name_parts();
        lay_out();
        connect_parts();
        page_->setSource(QUrl::fromLocalFile(page));
    }

  private:
    QString word(const char* key, const char* otherwise) const {
        return contents_.words.value(key, otherwise);
    }

    void name_parts() {
        list_->setObjectName("Contents");
        list_->setFixedWidth(std::min(contents_width_lines * fontMetrics().height(), width() / 3));
        list_->setWordWrap(true);
        for (const auto& page : contents_.pages)
            list_->addItem(page.title);
        list_->setAccessibleName(contents_.pages.isEmpty() ? "Contents" : contents_.pages[0].title);
        field_->setObjectName("Search");
        field_->setPlaceholderText(word("search", "Search"));
        field_->setAccessibleName(field_->placeholderText());
        field_->setClearButtonEnabled(true);
        back_->setObjectName("Back");
        back_->setEnabled(false);
        back_->setAutoDefault(false);
        found_nothing_->setObjectName("Not_found");
        found_nothing_->hide();
        page_->setAccessibleName(word("title", "Manual"));
    }

    void lay_out() {
        auto* bar = new QHBoxLayout;
        bar->addWidget(back_);
        bar->addWidget(field_, 1);
        bar->addWidget(found_nothing_);
        auto* side = new QHBoxLayout;
        side->addWidget(list_);
        side->addWidget(page_, 1);
        auto* all = new QVBoxLayout(this);
        all->addLayout(bar);
        all->addLayout(side, 1);
        field_->setFocus();
    }

    void connect_parts() {
        connect(back_, &QPushButton::clicked, page_, &QTextBrowser::backward);
        connect(page_, &QTextBrowser::backwardAvailable, back_, &QWidget::setEnabled);
        connect(page_, &QTextBrowser::sourceChanged, this, [this](const QUrl& url) {
            shown_ = url.fileName();
            mark_page();
        });
        connect(list_, &QListWidget::currentRowChanged, this, [this](int row) { go_to(row); });
        connect(field_, &QLineEdit::textEdited, found_nothing_, &QWidget::hide);
        connect(field_, &QLineEdit::returnPressed, this, [this] {
            found_nothing_->setVisible(!page_->find_next(field_->text(), contents_.pages));
        });
    }

    void mark_page() {
        for (int row = 0; row < contents_.pages.size(); ++row)
            if (contents_.pages[row].file == shown_) list_->setCurrentRow(row);
    }

    void go_to(int row) {
        if (row < 0 || contents_.pages[row].file == shown_) return;
        page_->setSource(QUrl(contents_.pages[row].file));
    }

    const ManualContents contents_;
    QString shown_; // while the page changes, its source() is still the previous one
    QListWidget* list_;
    QLineEdit* field_;
    QPushButton* back_;
    QLabel* found_nothing_;
    ManualPage* page_;
};

} // namespace

std::unique_ptr<QWidget> make_manual_window(const std::string& file, const std::string& topic) {
    const QDir parent = QFileInfo(QString::fromStdString(file)).absoluteDir();
    const QString folder = QFileInfo(parent.filePath("manual")).canonicalFilePath();
    if (folder.isEmpty()) return {};
    const QString page = page_of(folder, QString::fromStdString(topic));
    if (page.isEmpty()) return {};
    return std::make_unique<ManualWindow>(folder, page);
}

} // namespace zol::view::qt
