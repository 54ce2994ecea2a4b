// gallery PROJECT FOLDER [DPI] - shows every window as a user of the project would see it, and saves a
// picture of each in the folder, as NAME.bmp.

#include "base/paths.h"
#include "forms/win32/win32_desktop.h"
#include "forms/win32/window_picture.h"
#include "gallery/gallery.h"

#include <cstdlib>
#include <exception>
#include <iostream>

using namespace corvelle;

namespace {

constexpr int failed = 1;
constexpr int misused = 2;

// Serves messages for long enough that everything is painted, and animated things have moved. The mouse is
// not over the window.
void settle(forms::Desktop& desktop) {
    constexpr DWORD longEnough = 300;
    SetCursorPos(0, 0);
    const DWORD start = GetTickCount();
    while (GetTickCount() - start < longEnough) {
        desktop.doEvents();
        Sleep(10);
    }
}

} // namespace

int main(int argc, char* argv[]) {
    if (argc < 3) {
        std::cerr << "usage: gallery PROJECT FOLDER [DPI]\n";
        return misused;
    }
    try {
        const std::string folder = argv[2];
        forms::Win32Desktop desktop(GetModuleHandleA(nullptr), argc > 3 ? std::atoi(argv[3]) : 0);
        const auto ide = workspace::Workspace::open(base::pathOf(argv[1]));
        ide->setActiveCodePane(ide->projects().front()->components().front().get());
        gallery::showAll(desktop, ide, [&](const std::string& name, forms::Form& form) {
            settle(desktop);
            forms::saveWindowPicture(form, folder + "\\" + name + ".bmp");
            std::cout << name << std::endl;
        });
    } catch (const std::exception& error) {
        std::cerr << "gallery: " << error.what() << "\n";
        return failed;
    }
    return 0;
}
