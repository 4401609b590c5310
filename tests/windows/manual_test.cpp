// The manual's window with the program's pages.
#include "tests/windows/window_fixture.h"
#include "view/qt/colours.h"

#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QTextDocument>

namespace zol::view {
namespace {

using namespace test_window;

class Manual : public WindowFixture {
  protected:
    ~Manual() override { screen.close_manual(); }

    void open_at(const std::string& topic) {
        show_manual(ZOL_SOURCE_DIR "/zol.chm", topic);
        settle();
    }
    template <typename T>
    T& part(const QString& name) const {
        for (QWidget* top : QApplication::topLevelWidgets())
            if (top->objectName() == "Manual")
                if (auto* found = top->findChild<T*>(name)) return *found;
        throw std::runtime_error("the manual has no " + name.toStdString());
    }
    QString text() const { return part<QTextBrowser>("Page").toPlainText(); }
    QString page() const { return part<QTextBrowser>("Page").source().fileName(); }
    QString chosen() const { return part<QTextBrowser>("Page").textCursor().selectedText(); }
    void look_for(const QString& words) {
        auto& field = part<QLineEdit>("Search");
        field.clear();
        type(field, words);
        press(field, Qt::Key_Return);
        settle();
    }
    bool says_not_found() const { return part<QWidget>("Not_found").isVisible(); }
};

TEST_F(Manual, ContentsOpenEachChapter) {
    open_at("uk/index.htm");
    auto& contents = part<QListWidget>("Contents");
    ASSERT_GE(contents.count(), 16);
    EXPECT_EQ(contents.currentRow(), 0);
    EXPECT_FALSE(part<QPushButton>("Back").isEnabled());
    for (int row = 1; row < contents.count(); ++row) {
        contents.setCurrentRow(row);
        settle();
        EXPECT_TRUE(text().startsWith(contents.item(row)->text()))
            << contents.item(row)->text().toStdString();
    }
    for (int row = contents.count() - 1; row > 0; --row) {
        click(part<QPushButton>("Back"));
        settle();
        EXPECT_EQ(contents.currentRow(), row - 1);
    }
    EXPECT_EQ(page(), "index.htm");
}

TEST_F(Manual, SearchContinuesInTheNextChapter) {
    open_at("uk/index.htm");
    look_for("dialout");
    EXPECT_EQ(page(), "connect.htm");
    EXPECT_EQ(chosen(), "dialout");
    EXPECT_FALSE(says_not_found());
    const int first = part<QTextBrowser>("Page").textCursor().position();
    press(part<QLineEdit>("Search"), Qt::Key_Return);
    EXPECT_EQ(page(), "connect.htm");
    EXPECT_GT(part<QTextBrowser>("Page").textCursor().position(), first);
    for (int i = 0; i < 10 && page() == "connect.htm"; ++i)
        press(part<QLineEdit>("Search"), Qt::Key_Return);
    EXPECT_EQ(page(), "troubleshooting.htm");
    EXPECT_EQ(part<QListWidget>("Contents").currentItem()->text(), "Troubleshooting");
    click(part<QPushButton>("Back"));
    EXPECT_EQ(page(), "connect.htm");
}

TEST_F(Manual, UnknownWordKeepsThePage) {
    open_at("uk/tank.htm");
    look_for("zeppelin");
    EXPECT_TRUE(says_not_found());
    EXPECT_EQ(page(), "tank.htm");
    type(part<QLineEdit>("Search"), "x");
    EXPECT_FALSE(says_not_found());
    look_for("");
    EXPECT_EQ(page(), "tank.htm");
}

TEST_F(Manual, PicturesAreShown) {
    open_at("uk/connect.htm");
    auto& browser = part<QTextBrowser>("Page");
    const auto picture = browser.document()->resource(QTextDocument::ImageResource,
                                                      QUrl("../pictures/uk/engine.png"));
    EXPECT_GT(picture.value<QImage>().width(), 600);
}

TEST_F(Manual, MissingPageShowsTheEnglishPage) {
    QTemporaryDir folder;
    QDir(folder.path()).mkpath("manual/uk");
    QFile page_file(folder.filePath("manual/uk/index.htm"));
    ASSERT_TRUE(page_file.open(QFile::WriteOnly));
    page_file.write("<h1>In English</h1>");
    page_file.close();
    show_manual(folder.filePath("zol.chm").toStdString(), "xx/index.htm");
    settle();
    EXPECT_TRUE(text().contains("In English"));
}

TEST_F(Manual, LinkOutOfTheManualKeepsThePage) {
    QTemporaryDir folder;
    QDir(folder.path()).mkpath("manual/uk");
    for (const char* name : {"manual/uk/index.htm", "outside.htm"}) {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write("<h1>A page</h1>");
    }
    show_manual(folder.filePath("zol.chm").toStdString(), "uk/index.htm");
    auto& browser = part<QTextBrowser>("Page");
    for (const char* away : {"http://somewhere.example/", "../../outside.htm"}) {
        browser.setSource(QUrl(away));
        settle();
        EXPECT_EQ(page(), "index.htm");
        EXPECT_TRUE(text().contains("A page"));
    }
}

TEST_F(Manual, WindowIsNotLargerThanTheScreen) {
    open_at("uk/index.htm");
    const QWidget* window = part<QWidget>("Page").window();
    EXPECT_LE(window->width(), window->screen()->availableSize().width());
    EXPECT_LE(window->height(), window->screen()->availableSize().height());
}

TEST_F(Manual, FontSizeIsThatOfTheMainWindow) {
    open(Sample);
    top(Sample).resize(top(Sample).size() * 2);
    settle();
    open_at("uk/index.htm");
    const double ordinary = face(Check1).font().pointSizeF();
    for (const char* name : {"Contents", "Search", "Page", "Back"})
        EXPECT_NEAR(part<QWidget>(name).font().pointSizeF(), ordinary, 1) << name;
    const auto& list = part<QListWidget>("Contents");
    EXPECT_GE(list.visualItemRect(list.item(0)).height(), 1.4 * list.fontMetrics().height());
}

TEST_F(Manual, WindowHasAnEdgeOfHighContrast) {
    open_at("uk/index.htm");
    QWidget& window = *part<QWidget>("Page").window();
    const QColor ground = window.palette().color(QPalette::Window);
    EXPECT_GE(qt::contrast(window.grab().toImage().pixelColor(0, 90), ground), 3);
}

TEST_F(Manual, TextHasEnoughContrastInEachState) {
    open_at("uk/index.htm");
    const auto contrast = [&](const char* name, QPalette::ColorGroup group,
                              QPalette::ColorRole ground, QPalette::ColorRole ink) {
        const QPalette palette = part<QWidget>(name).palette();
        return qt::contrast(palette.color(group, ground), palette.color(group, ink));
    };
    for (const auto group : {QPalette::Active, QPalette::Inactive})
        EXPECT_GE(contrast("Contents", group, QPalette::Highlight, QPalette::HighlightedText), 4.5);
    EXPECT_GE(contrast("Search", QPalette::Active, QPalette::Base, QPalette::PlaceholderText), 4.5);
    EXPECT_GE(contrast("Back", QPalette::Disabled, QPalette::Button, QPalette::ButtonText), 4.5);
}

TEST_F(Manual, TabReachesEveryPart) {
    open_at("uk/index.htm");
    for (const char* name : {"Contents", "Search", "Page"}) {
        EXPECT_FALSE(part<QWidget>(name).accessibleName().isEmpty()) << name;
        EXPECT_TRUE(part<QWidget>(name).focusPolicy() & Qt::TabFocus) << name;
    }
    EXPECT_FALSE(part<QPushButton>("Back").text().isEmpty());
}

} // namespace
} // namespace zol::view
