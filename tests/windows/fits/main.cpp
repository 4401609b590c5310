// fits_tests WIDTH HEIGHT SCALE: runs the tests on an offscreen screen of this size in pixels and
// with this number of pixels for each design pixel.
#include "tests/windows/toolkit_tests.h"

#include <QTemporaryFile>

#include <cstdio>

namespace {

// The offscreen platform reads the size of its screen from a file.
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
        std::fprintf(stderr, "usage: fits_tests WIDTH HEIGHT SCALE\n");
        return 2;
    }
    qputenv("QT_SCALE_FACTOR", argv[3]);
    return zol::tests::run_toolkit_tests(argc, argv);
}
