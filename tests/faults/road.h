#pragma once

#include "base/temporary_folder.h"
#include "fakes/fake_ide.h"
#include "faults/folder_state.h"
#include "forms/headless/headless_desktop.h"
#include "host/add_in.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace corvelle::host::test {

/// A settings store of which the n-th call fails.
class FailingSettings : public forms::Settings {
  public:
    explicit FailingSettings(forms::Settings& settings) : settings_(settings) {}

    /// The n-th call from now on; 0: none.
    void fail(int n);
    bool failed() const { return failed_; }

    std::string get(const std::string& application, const std::string& section, const std::string& key,
                    const std::string& otherwise) override;
    void save(const std::string& application, const std::string& section, const std::string& key,
              const std::string& value) override;

  private:
    void enter();

    forms::Settings& settings_;
    int callsUntil_ = 0;
    bool failed_ = false;
};

/// A window system whose user says yes to everything and works on each window that waits in one way.
class RoadDesktop : public forms::HeadlessDesktop {
  public:
    std::function<void(forms::Form&)> inModal;
    std::function<void()> inWait;
    /// The choice in a file dialog of that filter.
    std::function<std::string(const std::string& filter)> chosenFile;

    FailingSettings store{map()};
    int timers = 0; ///< that run

    forms::Settings& settings() override { return store; }
    void runModal(forms::Form& form) override;
    bool waitForEvents() override;
    std::optional<std::string> chooseFile(const forms::CommonDialog& dialog, bool save) override;
    void startTimer(forms::Timer& timer, std::int32_t interval) override;
    void stopTimer(forms::Timer& timer) override;

  protected:
    int showMessageBox(const std::string& text, int flags, const std::string& title) override;
};

/// A user's way through an add-in, from its connection to its disconnection, over a fake IDE. Whatever a
/// failure has put out of reach is passed over.
class Road {
  public:
    Road();
    virtual ~Road() = default;
    Road(const Road&) = delete;
    Road& operator=(const Road&) = delete;

    void walk();
    /// No window, no timer, no file and no reference is left, and no file that nobody chose.
    void expectNothingLeft();
    virtual void expectUnharmed(bool failed) = 0;

    corvelle::test::InMemory inMemory;
    corvelle::test::TemporaryFolder folder;
    RoadDesktop desktop;
    std::shared_ptr<corvelle::test::FakeIde> ide = corvelle::test::FakeIde::make();
    std::shared_ptr<AddIn> addIn;
    std::set<std::string> names; ///< of the files that may be there

  protected:
    /// Works on the first window, behind the menu command.
    virtual void useWindows() = 0;

    /// Calls the add-in as its host does: what it throws is the host's.
    static void enter(const std::function<void()>& call);
    /// Presses a button; whether it was in reach. Then everything is at rest again.
    bool press(forms::Control& button);
    /// Works on the topmost window of that class, if there is one.
    template <class Window>
    void on(const std::function<void(Window&)>& action) {
        for (auto it = desktop.windows().rbegin(); it != desktop.windows().rend(); ++it) {
            if (auto* const window = dynamic_cast<Window*>(*it)) {
                const auto alive = window->shared_from_this();
                return enter([&] { action(*window); });
            }
        }
    }
    std::string pathOf(const std::string& name) const { return (folder.path() / name).string(); }

  private:
    std::ptrdiff_t openFiles_;
};

/// Walks the road with each call on the IDE, on the settings store, on a file and for memory failing.
void failEachStep(const std::function<std::shared_ptr<Road>()>& makeRoad, int leastIdeCalls,
                  int leastSettingsCalls, int leastSystemCalls);

} // namespace corvelle::host::test
