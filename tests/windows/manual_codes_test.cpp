// The manual's pages of fault codes: the manual's search finds them, and they open quickly.
#include "tests/windows/window_fixture.h"

#include <QElapsedTimer>
#include <QLineEdit>
#include <QListWidget>
#include <QTextBlock>
#include <QTextBrowser>

namespace zol::view {
namespace {

class ManualCodes : public WindowFixture {
  protected:
    ~ManualCodes() override { screen.close_manual(); }

    template <typename T>
    T& part(const QString& name) const {
        for (QWidget* top : QApplication::topLevelWidgets())
            if (top->objectName() == "Manual")
                if (auto* found = top->findChild<T*>(name)) return *found;
        throw std::runtime_error("the manual has no " + name.toStdString());
    }
    void open_at(const std::string& topic) {
        show_manual(ZOL_SOURCE_DIR "/zol.chm", topic);
        settle();
    }
    void look_for(const QString& words) {
        part<QLineEdit>("Search").setText(words);
        press(part<QLineEdit>("Search"), Qt::Key_Return);
    }
    // The time of `work` and the painting after it, in milliseconds.
    template <typename Work>
    static qint64 time_of(Work work) {
        QElapsedTimer clock;
        clock.start();
        work();
        settle();
        return clock.elapsed();
    }
    // With sanitizers; the program itself is several times faster.
    static constexpr qint64 most_ms = 2000;
};

TEST_F(ManualCodes, SearchFindsACodeInEachLanguage) {
    for (const char* language : {"it", "uk", "pl", "de", "fr"}) {
        open_at(std::string(language) + "/codes-p00.htm");
        look_for("P0171");
        auto& page = part<QTextBrowser>("Page");
        EXPECT_EQ(page.source().fileName(), "codes-p01.htm") << language;
        EXPECT_EQ(page.textCursor().selectedText(), "P0171");
        EXPECT_TRUE(page.textCursor().block().text().startsWith("P0171 ")) << language;
        EXPECT_GT(page.textCursor().block().text().size(), 100) << "its note follows";
    }
}

TEST_F(ManualCodes, SearchFromTheFirstPageReachesTheCodes) {
    open_at("uk/index.htm");
    look_for("P2187");
    EXPECT_EQ(part<QTextBrowser>("Page").source().fileName(), "codes-p21.htm");
}

TEST_F(ManualCodes, EachPageOpensQuickly) {
    open_at("uk/codes.htm");
    auto& contents = part<QListWidget>("Contents");
    int pages = 0;
    for (int row = 0; row < contents.count(); ++row) {
        if (!contents.item(row)->text().startsWith('P') || contents.item(row)->text().size() != 13)
            continue;
        ++pages;
        EXPECT_LT(time_of([&] { contents.setCurrentRow(row); }), most_ms)
            << contents.item(row)->text().toStdString();
    }
    EXPECT_EQ(pages, 20);
}

TEST_F(ManualCodes, SearchWithoutAResultIsQuick) {
    open_at("uk/index.htm");
    const auto ms = time_of([&] { look_for("zeppelin"); });
    EXPECT_TRUE(part<QWidget>("Not_found").isVisible());
    EXPECT_LT(ms, most_ms);
}

} // namespace
} // namespace zol::view
