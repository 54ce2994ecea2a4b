#pragma once

#include "base/temporary_folder.h"
#include "fakes/fake_ide.h"
#include "forms/headless/headless_desktop.h"
#include "host/add_in.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace corvelle::host::test {

/// A connect object before a fake IDE, with a scripted user. An add-in's window finds what it wants to find,
/// so that nothing is asked when it opens.
class Connected {
  public:
    Connected();
    ~Connected();
    Connected(const Connected&) = delete;
    Connected& operator=(const Connected&) = delete;

    void connect(std::int32_t mode = connect_mode::Startup);
    void disconnect() { addIn->IDTExtensibility_OnDisconnection(); }
    /// Chooses the add-in's menu command; false if nothing listens.
    bool clickCommand();
    /// The commands on the "Add-Ins" menu.
    std::vector<std::string> commands() const { return ide->bars.front()->captions(); }
    /// The names of the windows on the screen, the topmost last.
    std::vector<std::string> windows() const;
    /// The topmost window of that class; fails if there is none.
    template <class Window>
    Window& window() const {
        for (auto it = desktop.windows().rbegin(); it != desktop.windows().rend(); ++it) {
            if (auto* const found = dynamic_cast<Window*>(*it)) return *found;
        }
        throw std::logic_error("no such window");
    }
    /// The setting; "none" if it was not saved.
    std::string autoShow();

    corvelle::test::TemporaryFolder folder;
    forms::HeadlessDesktop desktop;
    std::shared_ptr<corvelle::test::FakeIde> ide = corvelle::test::FakeIde::make();
    std::shared_ptr<AddIn> addIn;
};

} // namespace corvelle::host::test
