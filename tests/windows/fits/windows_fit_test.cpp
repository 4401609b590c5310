// No text or control is cut off, covered or outside the screen, for each screen size and language.
#include "tests/windows/fits/fit_fixture.h"

#include "app/app_state.h"
#include "app/message_catalogue.h"
#include "link/port_test_failure.h"
#include "view/windows/acquisizione.h"
#include "view/windows/centralina_attiva.h"
#include "view/windows/form1.h"
#include "view/windows/form2.h"
#include "view/windows/form3.h"
#include "view/windows/form_power.h"
#include "view/windows/frm_splash.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTimer>

#include <cerrno>
#include <cstring>

namespace zol::view {
namespace {

class EveryWindowFits : public FitFixture {
  protected:
    // Shows all controls, and this one of the panels.
    void show_panel(const Widget& panel) {
        for (Widget* w : form1::Form1.controls)
            set_visible(*w, true);
        for (Widget* other : {&form1::frame_engine, &form1::Frame_impostazioni,
                              &form1::Frame_Lambda, &form1::Frame_diagnosi})
            set_visible(*other, other == &panel);
        settle();
    }

    // Each item fits, on as many lines as it needs.
    void expect_contents_whole(QListWidget& contents) {
        ASSERT_GT(contents.count(), 10);
        for (int row = 0; row < contents.count(); ++row) {
            const QListWidgetItem* item = contents.item(row);
            const QRect place = contents.visualItemRect(item);
            const QRect text = contents.fontMetrics().boundingRect(
                QRect(0, 0, place.width() - 6, 0), Qt::TextWordWrap, item->text());
            EXPECT_LE(text.width(), place.width()) << item->text().toStdString();
            EXPECT_LE(text.height(), place.height()) << item->text().toStdString();
            EXPECT_LE(place.width(), contents.viewport()->width()) << item->text().toStdString();
        }
    }

    void expect_each_panel_fits() {
        for (Widget* panel : {&form1::frame_engine, &form1::Frame_impostazioni,
                              &form1::Frame_Lambda, &form1::Frame_diagnosi}) {
            show_panel(*panel);
            expect_all(form1::Form1);
        }
    }
};

TEST_P(EveryWindowFits, MainWindowWithEachPanel) {
    open(form1::Form1);
    expect_each_panel_fits();
}

// No control is in the band of the legend.
TEST_P(EveryWindowFits, LegendOfTheKeys) {
    open(form1::Form1);
    QWidget& window = top(form1::Form1);
    const QSize given = window.size();
    for (const QSize size : {given, QSize(given.width() * 7 / 10, given.height()), QSize(1, 1)}) {
        window.resize(size);
        settle();
        // The longest words do not fit into the smallest windows.
        constexpr int small = 500;
        if (window.width() > small || GetParam() != std::string("xx")) {
            EXPECT_TRUE(window.findChild<QWidget*>("Legend")->isVisible()) << size.width();
        }
        expect_legend_whole(form1::Form1);
    }
}

TEST_P(EveryWindowFits, MainWindowMaximised) {
    open(form1::Form1);
    set_window_state(form1::Form1, WindowState::maximised);
    settle();
    expect_each_panel_fits();
}

// Normal, narrower, lower, and as small as possible.
TEST_P(EveryWindowFits, MainWindowInEachSize) {
    open(form1::Form1);
    set_window_state(form1::Form1, WindowState::maximised);
    settle();
    set_window_state(form1::Form1, WindowState::normal);
    settle();
    QWidget& window = top(form1::Form1);
    const QSize given = window.size();
    for (const QSize size : {given, QSize(given.width() * 7 / 10, given.height()),
                             QSize(given.width(), given.height() * 7 / 10), QSize(1, 1)}) {
        window.resize(size);
        settle();
        expect_each_panel_fits();
    }
}

TEST_P(EveryWindowFits, SplashWindow) {
    open(frm_splash::frmSplash);
    expect_all(frm_splash::frmSplash);
}

TEST_P(EveryWindowFits, ConnectionDialog) {
    open(centralina_attiva::Centralina_Attiva);
    expect_all(centralina_attiva::Centralina_Attiva);
}

TEST_P(EveryWindowFits, ReasonsOfAFailedPortTest) {
    open(centralina_attiva::Centralina_Attiva);
    for (const std::string& reason :
         {link::why_no_answer(1), link::why_port_failed(1, std::strerror(ENOENT)),
          link::why_port_failed(1, std::strerror(EACCES)),
          link::why_port_failed(1, std::strerror(EBUSY)),
          link::why_port_failed(1, std::strerror(ENOTTY)),
          link::why_port_failed(1, "COM1 (/dev/ttyUSB0): " + std::string(std::strerror(ELOOP))),
          link::why_port_failed(0, "")}) {
        set_tip(centralina_attiva::Label2, reason);
        settle();
        for (QLabel* line : top(centralina_attiva::Centralina_Attiva).findChildren<QLabel*>())
            if (line->objectName().isEmpty() && line->isVisible())
                expect_drawn_whole(*line, QString::fromStdString(reason), reason);
    }
    set_tip(centralina_attiva::Label2, "");
}

TEST_P(EveryWindowFits, ParameterWindow) {
    open(form2::Form2);
    expect_all(form2::Form2);
}

TEST_P(EveryWindowFits, ChangeoverWindow) {
    app::state.ecu_version = 7, app::state.ecu_revision = 71; // all frames are visible
    open(form3::Form3);
    expect_all(form3::Form3);
}

TEST_P(EveryWindowFits, PowerDialog) {
    open(form_power::Form_power);
    expect_all(form_power::Form_power);
}

TEST_P(EveryWindowFits, AcquisitionWindow) {
    open(acquisizione::acquisizione);
    expect_all(acquisizione::acquisizione);
}

// A list is as wide as its longest item.
TEST_P(EveryWindowFits, OpenList) {
    open(form1::Form1);
    show_panel(form1::Frame_impostazioni);
    auto& combo = static_cast<QComboBox&>(face(form1::Combo_tank_level));
    combo.showPopup();
    settle();
    auto* entries = combo.view();
    EXPECT_TRUE(entries->screen()->geometry().contains(entries->window()->frameGeometry()));
    QString all;
    for (int i = 0; i < combo.count(); ++i)
        all += combo.itemText(i) + ' ';
    expect_drawn_whole(*entries->viewport(), all, "the open list");
    combo.hidePopup();
}

TEST_P(EveryWindowFits, Manual) {
    const std::string language = GetParam() == std::string("xx") ? "de" : GetParam();
    show_manual(ZOL_SOURCE_DIR "/zol.chm", language + "/index.htm");
    settle();
    QWidget* manual = nullptr;
    for (QWidget* top : QApplication::topLevelWidgets())
        if (top->objectName() == "Manual") manual = top;
    ASSERT_TRUE(manual);
    expect_window_on_screen(*manual);
    EXPECT_GE(manual->width(), manual->screen()->availableSize().width() * 0.74);
    const auto parts = manual->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    for (const QWidget* part : parts) {
        if (!part->isVisible()) continue;
        EXPECT_TRUE(manual->rect().contains(part->geometry())) << part->objectName().toStdString();
    }
    auto* back = manual->findChild<QPushButton*>("Back");
    expect_drawn_whole(*back, back->text(), "the manual's button");
    expect_contents_whole(*manual->findChild<QListWidget*>("Contents"));
    screen.close_manual();
}

// The longest questions of the program.
TEST_P(EveryWindowFits, Boxes) {
    app::state.current_language = GetParam();
    int judged = 0;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&] {
        for (QWidget* top : QApplication::topLevelWidgets()) {
            auto* box = qobject_cast<QMessageBox*>(top);
            if (!box || !box->isVisible()) continue;
            ++judged;
            expect_window_on_screen(*box);
            auto* words = box->findChild<QLabel*>("qt_msgbox_label");
            expect_drawn_whole(*words, words->text(), "a box's text");
            box->close();
        }
    });
    watch.start(1);
    for (const int key : {1252, 1254, 1255})
        message_box({.text = app::message(key).value_or("") + (key == 1255 ? "65535" : ""),
                     .title = "Forced START",
                     .buttons = Buttons::yes_no,
                     .icon = Icon::question});
    EXPECT_EQ(judged, 3);
}

INSTANTIATE_TEST_SUITE_P(InLanguage, EveryWindowFits,
                         testing::Values("it", "uk", "pl", "fr", "de", "xx"),
                         [](const auto& of) { return std::string(of.param); });

} // namespace
} // namespace zol::view
