# The Debian 12 packages that the project needs, by purpose. Sourced by the scripts.
build_packages=(cmake ninja-build g++ qt6-base-dev)
# The font of the windows, and the one that they fall back on.
font_packages=(fonts-roboto-unhinted fonts-dejavu-core)
test_packages=(libgtest-dev libgmock-dev python3 clang-format clang-tidy "${font_packages[@]}")
# To make a Debian package needs these; g++ brings only some.
packaging_packages=(dpkg-dev file)
# To try one: entry and manual pages are held to their formats.
packaging_test_packages=(desktop-file-utils groff-base)
# xvfb-run needs xauth, which the package only recommends.
display_packages=(xvfb xauth "${font_packages[@]}")
# A serial terminal to measure beside, and who presses its buttons.
bench_packages=(cutecom xdotool)
wayland_packages=(qt6-wayland)
fuzz_packages=(clang)
# What a screen reader hears through, and a bus for it.
accessibility_packages=(at-spi2-core gir1.2-atspi-2.0 python3-gi dbus-daemon)
