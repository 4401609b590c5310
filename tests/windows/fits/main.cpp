// fits_tests <width> <height> <scale>: the windows on a screen of so many pixels, with so many of
// them to each pixel of a design.
#include "tests/support/toolkit_complaints.h"
#include "view/qt/application.h"

#include <QApplication>
#include <QTemporaryFile>

#include <cstdio>
#include <cstdlib>

namespace {

// The toolkit's screen that nobody sees takes its size from a file.
bool give_screen(QTemporaryFile& file, const char* width, const char* height) {
    if (!file.open()) return false;
    const QByteArray screens = QByteArray(R"({"screens": [{"name": "one", "x": 0, "y": 0, )") +
                               "\"width\": " + width + ", \"height\": " + height +
                               R"(, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})";
    if (file.write(screens) != screens.size() || !file.flush()) return false;
    return qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + file.fileName().toLocal8Bit());
}

} // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    QTemporaryFile screens;
    if (argc != 4 || !give_screen(screens, argv[1], argv[2])) {
        std::fprintf(stderr, "usage: fits_tests <width> <height> <scale>\n");
        return 2;
    }
    qputenv("QT_SCALE_FACTOR", argv[3]);
    // Without a folder of its own the toolkit takes one in /tmp, and says so.
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) qputenv("XDG_RUNTIME_DIR", "/nonexistent");
    zol::view::qt::prepare_toolkit();
    QApplication application(argc, argv);
    zol::view::qt::settle_look(application);
    qInstallMessageHandler(zol::tests::complain);
    return RUN_ALL_TESTS();
}
