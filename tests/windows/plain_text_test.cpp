// Texts from files, paths and the unit are shown as plain text. A text that looks like markup opens
// no file.
#include "app/app_state.h"
#include "app/application_folder.h"
#include "app/helper_texts.h"
#include "tests/windows/opened_file.h"
#include "tests/windows/window_fixture.h"
#include "view/windows/centralina_attiva.h"
#include "view/windows/form1.h"

#include <QAbstractItemView>
#include <QDir>
#include <QFile>
#include <QHelpEvent>
#include <QInputDialog>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTextDocumentFragment>
#include <QToolTip>
#include <QWindow>

namespace zol::view {
namespace {

using namespace test_window;

class PlainText : public WindowFixture {
  protected:
    PlainText() {
        QImage(8, 8, QImage::Format_RGB32).save(picture);
        watch = std::make_unique<OpenedFile>(picture);
    }
    ~PlainText() override { QToolTip::hideText(); }

    // Rests the pointer there and returns the visible text of the tip.
    static QString tip_at(QWidget& face, const QPoint& at) {
        QToolTip::hideText();
        QHelpEvent rest(QEvent::ToolTip, at, face.mapToGlobal(at));
        QApplication::sendEvent(&face, &rest);
        settle();
        for (QWidget* top : QApplication::topLevelWidgets()) {
            auto* tip = qobject_cast<QLabel*>(top);
            if (!tip || !tip->isVisible() || !tip->inherits("QTipLabel")) continue;
            tip->grab();
            return Qt::mightBeRichText(tip->text())
                       ? QTextDocumentFragment::fromHtml(tip->text()).toPlainText()
                       : tip->text();
        }
        return {};
    }
    static QString tip_of(QWidget& face) { return tip_at(face, face.rect().center()); }
    void expect_not_opened(const std::string& where) const {
        EXPECT_FALSE(watch->was_opened()) << where;
    }

    QTemporaryDir folder;
    const QString picture = folder.filePath("picture.png");
    const QString markup = "<img src='" + picture + "'> <b>a</b> &lt; & b";
    const std::string text = markup.toStdString();
    std::unique_ptr<OpenedFile> watch;
};

TEST_F(PlainText, IsShownInTipsFromAFile) {
    QDir(folder.path()).mkdir("language");
    QFile tips(folder.filePath("language/tips_uk.ini"));
    ASSERT_TRUE(tips.open(QFile::WriteOnly));
    tips.write("[Form1]\n");
    for (const auto* list : {&form1::Form1.controls, &form1::Form1.menus})
        for (const Widget* w : *list)
            tips.write((full_name(*w) + " = " + text + "\n").c_str());
    tips.close();
    app::use_application_folder(folder.path().toStdString());
    app::state.current_language = "uk";
    app::apply_helper_texts();
    open(form1::Form1);
    for (Widget* w : form1::Form1.controls) {
        const bool has_its_own = !w->look.tip.empty();
        if (!face(*w).isVisible() || has_its_own) continue;
        const QString tip = tip_of(face(*w)).replace('\n', ' '); // broken into lines
        EXPECT_TRUE(tip.startsWith(markup)) << full_name(*w) << ": " << tip.toStdString();
        EXPECT_TRUE(face(*w).accessibleDescription().startsWith(markup)) << full_name(*w);
    }
    expect_not_opened("the tips of Form1");
}

TEST_F(PlainText, IsShownForAFolderNameInATip) {
    const std::string two_lines = "COM1: " + text + "\nCOM2: " + text;
    open(Sample);
    for (Widget* w : Sample.controls) {
        set_tip(*w, two_lines);
        EXPECT_EQ(tip_of(face(*w)).toStdString(), two_lines) << full_name(*w);
    }
    expect_not_opened("the tips of each kind of control");
}

TEST_F(PlainText, IsShownInTheTipOfAListEntry) {
    open(Sample);
    set_items(Combo1, {text, "B"});
    set_item_tips(Combo1, {"COM1: " + text, "COM2"});
    auto& list = face<QComboBox>(Combo1);
    list.showPopup();
    settle();
    QAbstractItemView& entries = *list.view();
    const QPoint first = entries.visualRect(entries.model()->index(0, 0)).center();
    EXPECT_EQ(tip_at(*entries.viewport(), first).toStdString(), "COM1: " + text);
    EXPECT_EQ(list.itemText(0), markup);
    list.hidePopup();
    expect_not_opened("the entries");
}

TEST_F(PlainText, IsShownInTheTipOfAMenuItem) {
    open(Sample);
    set_text(mnu_mark, text);
    QMenu& menu = *action(mnu_tools).menu();
    for (const std::string& tip : {text, std::string()}) {
        set_tip(mnu_mark, tip);
        menu.popup(QPoint(0, 0));
        settle();
        EXPECT_EQ(tip_at(menu, menu.actionGeometry(&action(mnu_mark)).center()).toStdString(), tip);
        menu.hide();
    }
    expect_not_opened("the entries");
}

TEST_F(PlainText, IsShownInEachCaption) {
    open(Sample);
    for (Widget* w : Sample.controls) {
        set_text(*w, text);
        settle();
        top(Sample).grab();
        expect_not_opened(full_name(*w));
    }
    EXPECT_EQ(face<QLabel>(Label1).text(), markup);
    EXPECT_EQ(face<QPushButton>(Command1).text().replace("&&", "&"), markup);
}

TEST_F(PlainText, IsShownInAWindowTitle) {
    open(Sample);
    set_text(Sample, "a [*] b [*][*] & <b>");
    EXPECT_EQ(top(Sample).windowTitle().replace("[*][*]", "[*]"), "a [*] b [*][*] & <b>");
    EXPECT_EQ(top(Sample).windowHandle()->title(), "a [*] b [*][*] & <b>");
}

TEST_F(PlainText, IsShownInAMessageBox) {
    open(Sample);
    answer<QMessageBox>("message_box", [&](QMessageBox& box) {
        const auto* label = box.findChild<QLabel*>("qt_msgbox_label");
        EXPECT_EQ(label->text(), markup);
        EXPECT_EQ(label->textFormat(), Qt::PlainText);
        box.grab();
        QTest::mouseClick(box.button(QMessageBox::Ok), Qt::LeftButton);
    });
    message_box({.text = text, .title = text});
    expect_not_opened("the box");
}

TEST_F(PlainText, IsShownInAnInputBox) {
    open(Sample);
    answer<QInputDialog>("input_box", [&](QInputDialog& box) {
        box.grab();
        EXPECT_EQ(box.findChild<QLabel*>()->text().replace("&&", "&"), markup);
        EXPECT_EQ(box.findChild<QLabel*>()->textFormat(), Qt::PlainText);
        box.reject();
    });
    input_box(text, text);
    expect_not_opened("the box");
}

} // namespace
} // namespace zol::view
