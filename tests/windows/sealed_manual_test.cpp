// The manual opens only regular files of its own folder.
#include "tests/windows/opened_file.h"
#include "tests/windows/window_fixture.h"

#include <QDir>
#include <QFile>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QTextDocument>
#include <QToolTip>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zol::view {
namespace {

class SealedManual : public WindowFixture {
  protected:
    SealedManual() {
        for (const char* path : {"manual/uk", "outside"})
            QDir(folder.path()).mkpath(path);
        write("manual/uk/second.htm", "<h1>Second</h1><p>zeppelin");
        // Opening a pipe without a writer would block.
        const QByteArray pipe = folder.filePath("manual/uk/pipe").toLocal8Bit();
        EXPECT_EQ(::mkfifo(pipe, 0600), 0);
        feeder = ::open(pipe, O_RDWR | O_CLOEXEC);
        for (const char* name : {"secret.png", "secret.css", "secret.htm", "secret.txt"})
            write("outside/" + QString(name), "");
        QImage(9, 9, QImage::Format_RGB32).save(folder.filePath("outside/secret.png"));
        QImage(7, 7, QImage::Format_RGB32).save(folder.filePath("manual/uk/inside.png"));
        write("outside/secret.htm", "<h1>Secret</h1><p>zeppelin");
        write("outside/secret.txt", "secret.htm\tSecret\ntitle\tSecret\n");
        watch = std::make_unique<OpenedFile>(folder.filePath("manual/uk/pipe"));
        watch->add(folder.filePath("outside"));
    }
    ~SealedManual() override {
        screen.close_manual();
        ::close(feeder);
    }

    void write(const QString& name, const QByteArray& content) {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QFile::WriteOnly)) << name.toStdString();
        file.write(content);
    }
    void link(const QString& name, const QString& target) {
        ASSERT_TRUE(QFile::link(folder.filePath(target), folder.filePath(name)));
    }
    void open_at(const std::string& topic) {
        show_manual(folder.filePath("zol.chm").toStdString(), topic);
        settle();
    }
    void open_page(const QByteArray& content) {
        write("manual/uk/index.htm", "<h1>Index</h1>" + content);
        open_at("uk/index.htm");
        part<QTextBrowser>("Page")->window()->grab();
    }
    template <typename T>
    T* part(const QString& name) const {
        for (QWidget* top : QApplication::topLevelWidgets())
            if (top->objectName() == "Manual") return top->findChild<T*>(name);
        return nullptr;
    }
    QTextBrowser& page() const { return *part<QTextBrowser>("Page"); }
    // A file outside the manual, or a pipe, was opened since the last call.
    bool opened() const { return watch->was_opened(); }
    // All forms of a link to a file outside.
    QStringList ways_to(const QString& name) const {
        const QString path = folder.filePath("outside/" + name);
        return {path, "../../outside/" + name, "file://" + path, "/" + path,
                "%2e%2e/../outside/" + name};
    }

    QTemporaryDir folder;
    std::unique_ptr<OpenedFile> watch;
    int feeder = -1;
};

TEST_F(SealedManual, ShowsAPictureOfItsOwnFolder) {
    open_page("<img src='inside.png'>");
    const auto picture =
        page().document()->resource(QTextDocument::ImageResource, QUrl("inside.png"));
    EXPECT_EQ(picture.value<QImage>().width(), 7);
}

TEST_F(SealedManual, ShowsNoPictureFromOutside) {
    link("manual/uk/link.png", "outside/secret.png");
    for (const QString& way : ways_to("secret.png") + QStringList{"link.png", "pipe"}) {
        open_page("<img src='" + way.toUtf8() + "'><table background='" + way.toUtf8() +
                  "'><tr><td>a</td></tr></table>");
        EXPECT_FALSE(opened()) << way.toStdString();
    }
}

// Other image formats can refer to further files.
TEST_F(SealedManual, ShowsOnlyPngPictures) {
    ASSERT_TRUE(
        QImage(7, 7, QImage::Format_RGB32).save(folder.filePath("manual/uk/inside.png"), "BMP"));
    open_page("<img src='inside.png'>");
    const auto picture =
        page().document()->resource(QTextDocument::ImageResource, QUrl("inside.png"));
    EXPECT_EQ(picture.value<QImage>().width(), 1);
}

TEST_F(SealedManual, LoadsNoStyleSheetFromOutside) {
    link("manual/uk/link.css", "outside/secret.css");
    for (const QString& way : ways_to("secret.css") + QStringList{"link.css", "pipe"}) {
        open_page("<link rel='stylesheet' type='text/css' href='" + way.toUtf8() + "'>");
        EXPECT_FALSE(opened()) << way.toStdString();
        open_page("<style>@import url('" + way.toUtf8() + "');</style>");
        EXPECT_FALSE(opened()) << way.toStdString();
    }
}

TEST_F(SealedManual, SearchOpensNoFileNamedByAPage) {
    link("manual/uk/link.htm", "outside/secret.htm");
    write("manual/uk/contents.txt", "index.htm\tIndex\npipe.htm\tPipe\nlink.htm\tLink\n"
                                    "../../outside/secret.htm\tSecret\nsecond.htm\tSecond\n");
    ASSERT_EQ(::link(folder.filePath("manual/uk/pipe").toLocal8Bit(),
                     folder.filePath("manual/uk/pipe.htm").toLocal8Bit()),
              0);
    const QByteArray outside = folder.filePath("outside/secret.css").toUtf8();
    write("manual/uk/second.htm", "<head><link rel='stylesheet' href='" + outside +
                                      "'></head><h1>Second</h1><style>@import url('" + outside +
                                      "');</style><p>zeppelin");
    open_page("");
    auto& field = *part<QLineEdit>("Search");
    type(field, "zeppelin");
    press(field, Qt::Key_Return);
    EXPECT_EQ(page().source().fileName(), "second.htm");
    EXPECT_FALSE(opened());
}

TEST_F(SealedManual, OpensNoPageOutside) {
    link("manual/uk/link.htm", "outside/secret.htm");
    open_page("");
    for (const QString& way : ways_to("secret.htm") + QStringList{"link.htm", "pipe", "."}) {
        page().setSource(QUrl(way));
        settle();
        EXPECT_TRUE(page().toPlainText().startsWith("Index")) << way.toStdString();
        EXPECT_FALSE(opened()) << way.toStdString();
    }
}

TEST_F(SealedManual, OpensNoTopicOutside) {
    link("manual/uk/link.htm", "outside/secret.htm");
    QDir(folder.path()).rename("outside", "manual2");
    for (const char* topic :
         {"../manual2/secret.htm", "uk/../../manual2/secret.htm", "uk/link.htm", "uk/pipe", "uk"}) {
        open_at(topic);
        EXPECT_EQ(part<QWidget>("Page"), nullptr) << topic;
        EXPECT_FALSE(opened()) << topic;
    }
}

TEST_F(SealedManual, ReadsNoContentsOutside) {
    link("manual/uk/contents.txt", "outside/secret.txt");
    open_page("");
    EXPECT_EQ(part<QListWidget>("Contents")->count(), 0);
    EXPECT_EQ(page().window()->windowTitle(), "Manual");
    EXPECT_FALSE(opened());
}

TEST_F(SealedManual, ReadsNoContentsFromAPipe) {
    ASSERT_EQ(::link(folder.filePath("manual/uk/pipe").toLocal8Bit(),
                     folder.filePath("manual/uk/contents.txt").toLocal8Bit()),
              0);
    ::close(feeder); // no writer
    open_page("");
    EXPECT_EQ(part<QListWidget>("Contents")->count(), 0);
    EXPECT_FALSE(opened());
}

TEST_F(SealedManual, ShowsNoTipForALink) {
    const QByteArray picture = folder.filePath("outside/secret.png").toUtf8();
    open_page("<a href='second.htm' title='&lt;img src=\"" + picture + "\"&gt;'>zeppelin</a>");
    ASSERT_TRUE(page().find("zeppelin"));
    QWidget& paper = *page().viewport();
    const QPoint at = page().cursorRect().center() - QPoint(10, 0);
    ASSERT_EQ(page().anchorAt(at), "second.htm");
    QHelpEvent rest(QEvent::ToolTip, at, paper.mapToGlobal(at));
    QApplication::sendEvent(&paper, &rest);
    settle();
    EXPECT_FALSE(QToolTip::isVisible());
    EXPECT_FALSE(opened());
    QToolTip::hideText();
}

TEST_F(SealedManual, FolderCanBeALink) {
    open_page("<img src='../uk/inside.png'>");
    screen.close_manual();
    QDir(folder.path()).mkdir("user");
    link("user/manual", "manual");
    show_manual(folder.filePath("user/zol.chm").toStdString(), "uk/index.htm");
    settle();
    EXPECT_TRUE(page().toPlainText().startsWith("Index"));
    page().setSource(QUrl("second.htm"));
    EXPECT_TRUE(page().toPlainText().startsWith("Second"));
}

TEST_F(SealedManual, ReadsNoFileOfATerabyte) {
    open_page("");
    for (const char* name : {"huge.htm", "huge.png", "contents.txt"}) {
        write("manual/uk/" + QString(name), "<h1>Huge</h1>");
        ASSERT_EQ(::truncate(folder.filePath("manual/uk/").toLocal8Bit() + name, 1LL << 40), 0);
    }
    open_page("<img src='huge.png'>");
    page().setSource(QUrl("huge.htm"));
    EXPECT_TRUE(page().toPlainText().startsWith("Index"));
    EXPECT_EQ(part<QListWidget>("Contents")->count(), 0);
}

TEST_F(SealedManual, ShowsItsContentsAsPlainText) {
    const QByteArray markup = "a & <b>b</b> <img src='/nowhere'>";
    write("manual/uk/contents.txt", "index.htm\t" + markup + "\ntitle\t" + markup + "\nback\t" +
                                        markup + "\nnot_found\t" + markup + "\nsearch\t" + markup);
    open_page("");
    EXPECT_EQ(part<QListWidget>("Contents")->item(0)->text(), markup);
    EXPECT_EQ(part<QPushButton>("Back")->text().replace("&&", "&"), markup);
    EXPECT_EQ(part<QLabel>("Not_found")->text(), markup);
    EXPECT_EQ(part<QLabel>("Not_found")->textFormat(), Qt::PlainText);
}

} // namespace
} // namespace zol::view
