#include "forms/timer.h"
#include "forms/win32/host_window.h"
#include "forms/win32/screen_test.h"

namespace corvelle::forms::tests {

namespace {

class Modal : public ScreenTest {
  protected:
    HostWindow host;
    std::shared_ptr<EveryControl> form = std::make_shared<EveryControl>(desktop(), "Modal");

    /// Runs the form modally; once it is active the action runs, on the same thread.
    void runModal(const std::function<void()>& action) {
        form->onEvent = [this, action](const std::string& event) {
            if (event != "activate") return;
            form->onEvent = nullptr;
            action();
        };
        form->showModal();
    }
};

TEST_F(Modal, DisablesTheHostUntilItIsHidden) {
    runModal([&] {
        EXPECT_FALSE(IsWindowEnabled(host.window()));
        EXPECT_TRUE(IsWindowEnabled(windowOf(*form)));
        EXPECT_EQ(host.window(), GetWindow(windowOf(*form), GW_OWNER));
        form->hide();
    });
    EXPECT_TRUE(IsWindowEnabled(host.window()));
    EXPECT_EQ(host.window(), GetActiveWindow());
    EXPECT_TRUE(host.wasEnabled); // before the window went, so that the focus found its way
    EXPECT_TRUE(form->isLoaded());
}

TEST_F(Modal, DisablesTheHostUntilItIsUnloaded) {
    runModal([&] { form->unload(); });
    EXPECT_TRUE(IsWindowEnabled(host.window()));
    EXPECT_EQ(host.window(), GetActiveWindow());
    EXPECT_TRUE(host.wasEnabled);
    EXPECT_FALSE(form->isLoaded());
}

TEST_F(Modal, IsUnloadedInItsOwnClick) {
    HWND window = nullptr;
    form->onEvent = [&](const std::string& event) {
        if (event == "activate") postClick(windowOf(form->cmdOk));
        if (event == "cmdOk click") {
            window = windowOf(*form);
            form->unload();
            EXPECT_TRUE(IsWindowEnabled(host.window()));
        }
    };
    form->showModal();
    EXPECT_FALSE(form->isLoaded());
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(host.window(), GetActiveWindow());
    EXPECT_TRUE(host.wasEnabled);
}

TEST_F(Modal, DisablesOtherFormsAndTellsThem) {
    const auto other = shownForm();
    runModal([&] {
        EXPECT_FALSE(other->enabled());
        EXPECT_FALSE(IsWindowEnabled(windowOf(*other)));
        form->unload();
    });
    EXPECT_TRUE(other->enabled());
    EXPECT_TRUE(IsWindowEnabled(windowOf(*other)));
    EXPECT_EQ(windowOf(*other), GetActiveWindow());
    pump();
    EXPECT_EQ(2, other->count("activate"));
}

TEST_F(Modal, LeavesDisabledWhatWasDisabled) {
    const auto other = shownForm();
    EnableWindow(host.window(), FALSE);
    runModal([&] { form->unload(); });
    EXPECT_FALSE(IsWindowEnabled(host.window()));
    EXPECT_TRUE(IsWindowEnabled(windowOf(*other)));
}

TEST_F(Modal, ModalWindowsNest) {
    const auto inner = std::make_shared<EveryControl>(desktop(), "Inner");
    runModal([&] {
        inner->onEvent = [&](const std::string& event) {
            if (event != "activate") return;
            EXPECT_FALSE(form->enabled());
            EXPECT_FALSE(IsWindowEnabled(host.window()));
            inner->unload();
        };
        inner->showModal();
        EXPECT_TRUE(form->enabled());
        EXPECT_FALSE(IsWindowEnabled(host.window()));
        EXPECT_EQ(windowOf(*form), GetActiveWindow());
        form->unload();
    });
    EXPECT_TRUE(IsWindowEnabled(host.window()));
}

TEST_F(Modal, AFormThatItShowsAsItGoesIsActive) {
    const auto page = shownForm();
    page->hide();
    form->onEvent = [&](const std::string& event) {
        if (event == "activate") postClick(windowOf(form->cmdOk));
        if (event == "cmdOk click") form->unload();
        if (event != "unload") return;
        page->show();
        EXPECT_TRUE(IsWindowVisible(windowOf(*page)));
        EXPECT_FALSE(page->enabled());
        EXPECT_EQ(1, page->count("activate"));
    };
    form->showModal();
    pump();
    EXPECT_TRUE(page->enabled());
    EXPECT_EQ(windowOf(*page), GetActiveWindow());
    EXPECT_EQ(2, page->count("activate"));
}

TEST_F(Modal, ShownAgainAfterItWasHiddenItIsModalNoMore) {
    runModal([&] {
        form->hide();
        form->show();
    });
    EXPECT_TRUE(form->visible());
    EXPECT_TRUE(IsWindowEnabled(host.window()));
    form->unload();
}

TEST_F(Modal, QuittingEndsItAndEnablesTheHost) {
    runModal([] { PostQuitMessage(0); });
    EXPECT_TRUE(desktop().isQuitting());
    EXPECT_TRUE(IsWindowEnabled(host.window()));
    form->unload();
}

TEST_F(Modal, ADestroyedWindowEndsIt) {
    runModal([&] { PostMessageA(windowOf(*form), WM_APP + 1, 0, 0), DestroyWindow(windowOf(*form)); });
    EXPECT_TRUE(IsWindowEnabled(host.window()));
    form->unload();
}

TEST_F(Modal, TheHostsEndEndsIt) {
    auto going = std::make_unique<HostWindow>();
    const auto page = shownForm();
    const HWND window = windowOf(*page);
    runModal([&] { going.reset(); });
    EXPECT_FALSE(form->isLoaded());
    EXPECT_EQ(1, form->count("unload"));
    EXPECT_FALSE(page->isLoaded());
    EXPECT_FALSE(IsWindow(window));
}

TEST_F(Modal, TheKeyboardWorksWithoutTheHostsLoop) {
    int seen = 0;
    form->onEvent = [&](const std::string& event) {
        if (event == "activate") {
            postKey(windowOf(form->txtName), VK_TAB);
            postKey(windowOf(form->cmdOk), VK_TAB);
            postKey(windowOf(form->cmdCancel), VK_RETURN);
        }
        if (event == "cmdCancel click") ++seen, form->unload();
    };
    form->showModal();
    EXPECT_EQ(1, seen);
    EXPECT_EQ(1, form->count("cmdOk focus"));
    EXPECT_EQ(0, host.commands);
}

// Message boxes

TEST_F(Modal, AMessageBoxIsAnswered) {
    runModal([&] {
        std::string text;
        {
            const auto answers = answerBox("Sure ..?", IDYES, &text);
            EXPECT_EQ(answer::yes, desktop().msgBox("One\rTwo", box::yesNo + box::question, "Sure ..?"));
        }
        EXPECT_EQ("One\nTwo", text);
        {
            const auto answers = answerBox("Corvelle", IDNO);
            EXPECT_EQ(answer::no, desktop().msgBox("Again", box::yesNo + box::exclamation));
        }
        {
            const auto answers = answerBox("Corvelle", IDOK);
            EXPECT_EQ(answer::ok, desktop().msgBox("Done", box::information));
        }
        form->unload();
    });
    EXPECT_EQ(1, form->count("activate"));
}

TEST_F(Modal, AMessageBoxDisablesTheWholeProgram) {
    const auto page = shownForm();
    bool hostEnabled = true;
    bool pageEnabled = true;
    {
        const Helper looks([&] {
            const HWND box = waitForBox("Corvelle");
            hostEnabled = IsWindowEnabled(host.window());
            pageEnabled = IsWindowEnabled(windowOf(*page));
            PostMessageA(box, WM_COMMAND, IDOK, 0);
        });
        desktop().msgBox("Look", 0);
    }
    EXPECT_FALSE(hostEnabled);
    EXPECT_FALSE(pageEnabled);
    EXPECT_TRUE(IsWindowEnabled(host.window()));
    EXPECT_TRUE(IsWindowEnabled(windowOf(*page)));
    EXPECT_TRUE(page->enabled());
}

TEST_F(Modal, TimersTickBehindAMessageBox) {
    int ticks = 0;
    Timer timer(desktop());
    timer.onTimer = [&ticks] { // the third one answers it
        if (++ticks == 3) PostMessageA(waitForBox("Corvelle"), WM_COMMAND, IDOK, 0);
    };
    timer.setInterval(20);
    timer.setEnabled(true);
    desktop().msgBox("Wait", 0);
    EXPECT_GE(ticks, 3);
}

// Activation

TEST_F(Modal, ABoxThatClosesActivatesNoForm) {
    const auto page = shownForm();
    {
        const auto answers = answerBox("Corvelle", IDOK);
        desktop().msgBox("Hello", 0);
    }
    pump();
    EXPECT_EQ(windowOf(*page), GetActiveWindow());
    EXPECT_EQ(1, page->count("activate"));
    EXPECT_EQ(windowOf(page->txtName), GetFocus());
}

TEST_F(Modal, ComingBackFromTheHostActivates) {
    const auto page = shownForm();
    SetActiveWindow(host.window());
    pump();
    SetActiveWindow(windowOf(*page));
    pump();
    EXPECT_EQ(2, page->count("activate"));
    EXPECT_EQ(0, page->count("txtName left")); // the focus within the form has not changed
    EXPECT_EQ(windowOf(page->txtName), GetFocus());
}

TEST_F(Modal, ComingBackFromAnotherProgramDoesNot) {
    const auto page = shownForm();
    const HWND window = windowOf(*page);
    SendMessageA(window, WM_ACTIVATE, WA_INACTIVE, 0); // what the system says: to nobody of this thread
    SendMessageA(window, WM_ACTIVATE, WA_ACTIVE, 0);
    pump();
    EXPECT_EQ(1, page->count("activate"));
}

TEST_F(Modal, ABoxInsideTheActivationComesOnce) {
    const auto page = shownForm();
    int boxes = 0;
    page->onEvent = [&](const std::string& event) {
        if (event != "activate") return;
        ++boxes;
        const auto answers = answerBox("Corvelle", IDOK);
        desktop().msgBox("Activated", 0);
    };
    SetActiveWindow(host.window());
    pump();
    SetActiveWindow(windowOf(*page));
    pump();
    EXPECT_EQ(1, boxes);
}

// The host's loop

TEST_F(Modal, KeysOfAModelessFormWorkInTheHostsLoop) {
    const auto page = shownForm();
    postKey(windowOf(page->txtName), VK_TAB);
    host.serve();
    EXPECT_EQ(&page->cmdOk, page->activeControl());
    postKey(windowOf(page->cmdOk), VK_RETURN);
    host.serve();
    EXPECT_EQ(1, page->count("cmdOk click"));
    postAccelerator(windowOf(page->cmdOk), 'f');
    host.serve();
    EXPECT_EQ(1, page->chkOne.value());
    postKey(windowOf(page->cmdOk), VK_F1);
    host.serve();
    EXPECT_EQ(1, page->count("key 112"));
    PostMessageA(windowOf(page->txtName), WM_KEYDOWN, 'A', 1); // becomes the letter
    host.serve();
    EXPECT_EQ("a", page->txtName.text());
    EXPECT_EQ(0, host.commands);
}

TEST_F(Modal, TheHostsOwnKeysStayTheHosts) {
    const auto page = shownForm();
    postKey(host.window(), VK_F1);
    host.serve();
    EXPECT_EQ(1, host.commands);
    EXPECT_EQ(0, page->count("key 112"));
}

TEST_F(Modal, TheHookIsThereAsLongAsAFormIsOpen) {
    const auto first = shownForm();
    const auto second = shownForm();
    first->hide();
    postKey(windowOf(second->txtName), VK_TAB);
    host.serve();
    EXPECT_EQ(0, host.commands);
    second->hide();
    postKey(windowOf(second->txtName), VK_TAB); // nobody takes it before the host's accelerators any more
    host.serve();
    EXPECT_EQ(1, host.commands);
    second->show();
    postKey(windowOf(second->cmdOk), VK_TAB);
    host.serve();
    EXPECT_EQ(1, host.commands);
    second->unload();
    first->unload();
}

TEST_F(Modal, AFormUnloadsInTheHook) {
    const auto page = shownForm();
    page->onEvent = [&](const std::string& event) {
        if (event == "cmdCancel click") page->unload();
    };
    const HWND window = windowOf(*page);
    postKey(windowOf(page->txtName), VK_ESCAPE);
    host.serve();
    EXPECT_FALSE(page->isLoaded());
    EXPECT_FALSE(IsWindow(window));
    postKey(host.window(), VK_TAB);
    host.serve();
    EXPECT_EQ(1, host.commands);
}

} // namespace

} // namespace corvelle::forms::tests
