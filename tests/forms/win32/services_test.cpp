#include "forms/controls.h"
#include "forms/desktop.h"
#include "forms/timer.h"
#include "forms/win32/file_dialog.h"
#include "forms/win32/screen_test.h"

#include <cstdio>
#include <filesystem>

namespace corvelle::forms::tests {

namespace {

class SettingsStore : public ScreenTest {
  protected:
    static constexpr const char* application = "Corvelle Tests";

    ~SettingsStore() override {
        const std::string path = std::string("Software\\VB and VBA Program Settings\\") + application;
        RegDeleteKeyA(HKEY_CURRENT_USER, (path + "\\Section").c_str());
        RegDeleteKeyA(HKEY_CURRENT_USER, path.c_str());
    }
};

TEST_F(SettingsStore, GivesTheDefaultWhereThereIsNothing) {
    EXPECT_EQ("else", desktop().settings().get(application, "Section", "Key", "else"));
}

TEST_F(SettingsStore, KeepsAValue) {
    desktop().settings().save(application, "Section", "Key", "caf\xE9 & more");
    desktop().settings().save(application, "Section", "Empty", "");
    EXPECT_EQ("caf\xE9 & more", desktop().settings().get(application, "Section", "Key", "else"));
    EXPECT_EQ("", desktop().settings().get(application, "Section", "Empty", "else"));
    EXPECT_EQ("else", desktop().settings().get(application, "Section", "Other", "else"));
}

TEST_F(SettingsStore, IsWhereProgramsOfItsKindHaveIt) {
    desktop().settings().save(application, "Section", "Key", "value");
    char text[32] = {};
    DWORD size = sizeof text;
    HKEY key = nullptr;
    ASSERT_EQ(ERROR_SUCCESS, RegOpenKeyExA(HKEY_CURRENT_USER,
                                           "Software\\VB and VBA Program Settings\\Corvelle Tests\\Section",
                                           0, KEY_QUERY_VALUE, &key));
    EXPECT_EQ(ERROR_SUCCESS,
              RegQueryValueExA(key, "Key", nullptr, nullptr, reinterpret_cast<BYTE*>(text), &size));
    RegCloseKey(key);
    EXPECT_STREQ("value", text);
    EXPECT_EQ(6U, size);
}

TEST_F(SettingsStore, TakesASectionInsideAnother) {
    desktop().settings().save(application, "Section\\Inner", "Key", "value");
    EXPECT_EQ("value", desktop().settings().get(application, "Section\\Inner", "Key", "else"));
    EXPECT_EQ("else", desktop().settings().get(application, "Section", "Key", "else"));
    RegDeleteKeyA(HKEY_CURRENT_USER, "Software\\VB and VBA Program Settings\\Corvelle Tests\\Section\\Inner");
}

TEST_F(SettingsStore, TakesNoNumberForAText) {
    desktop().settings().save(application, "Section", "Text", "x");
    HKEY key = nullptr;
    RegOpenKeyExA(HKEY_CURRENT_USER, "Software\\VB and VBA Program Settings\\Corvelle Tests\\Section", 0,
                  KEY_SET_VALUE, &key);
    const DWORD number = 7;
    RegSetValueExA(key, "Number", 0, REG_DWORD, reinterpret_cast<const BYTE*>(&number), sizeof number);
    RegCloseKey(key);
    EXPECT_EQ("else", desktop().settings().get(application, "Section", "Number", "else"));
}

TEST(SystemFilter, EndsEachPartWithNul) {
    EXPECT_EQ(std::string("All(*.*)\0*.*\0Text\0*.txt\0\0", 25), systemFilter("All(*.*)|*.*|Text|*.txt"));
    EXPECT_EQ("", systemFilter(""));
}

class FileDialogs : public ScreenTest {
  protected:
    FileDialogs() {
        std::filesystem::create_directories(folder);
        std::fclose(std::fopen((folder / "there.txt").string().c_str(), "w"));
        dialog.dialogTitle = "Choose it";
        dialog.filter = "All Files(*.*)|*.*";
        dialog.initDir = folder.string();
    }
    ~FileDialogs() override { std::filesystem::remove_all(folder); }

    /// Types a name into the next dialog, or none, and ends it.
    std::unique_ptr<Helper> answerDialog(const std::string& name, int answer) {
        return std::make_unique<Helper>([this, name, answer] {
            const HWND window = waitForBox("Choose it");
            SendMessageA(window, WM_NULL, 0, 0); // it fills itself first
            SendDlgItemMessageA(window, nameField, WM_GETTEXT, sizeof proposed,
                                reinterpret_cast<LPARAM>(proposed));
            if (!name.empty()) {
                SendDlgItemMessageA(window, nameField, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(name.c_str()));
            }
            PostMessageA(window, WM_COMMAND, static_cast<WPARAM>(answer), 0);
        });
    }

    static constexpr int nameField = 0x47C;
    std::filesystem::path folder = std::filesystem::temp_directory_path() / "corvelle file dialog";
    CommonDialog dialog{desktop()};
    char proposed[260] = {};
};

TEST_F(FileDialogs, GiveTheChosenPathAndKeepTheCurrentFolder) {
    const auto before = std::filesystem::current_path();
    const auto form = shownForm();
    dialog.flags = file_dialog::fileMustExist;
    {
        const auto answers = answerDialog("there.txt", IDOK);
        dialog.showOpen();
    }
    EXPECT_EQ((folder / "there.txt").string(), dialog.fileName);
    EXPECT_EQ(before, std::filesystem::current_path());
    pump();
    EXPECT_EQ(1, form->count("activate"));
}

TEST_F(FileDialogs, ProposeTheName) {
    dialog.fileName = "Account_bak.cls";
    {
        const auto answers = answerDialog("", IDOK);
        dialog.showSave();
    }
    EXPECT_STREQ("Account_bak.cls", proposed);
    EXPECT_EQ((folder / "Account_bak.cls").string(), dialog.fileName);
}

TEST_F(FileDialogs, GiveNothingWhenCancelled) {
    dialog.fileName = "kept.txt";
    const auto answers = answerDialog("other.txt", IDCANCEL);
    dialog.showSave();
    EXPECT_EQ("kept.txt", dialog.fileName);
}

TEST_F(FileDialogs, ProposeNothingForWhatCannotBeAName) {
    dialog.fileName = "a<b>|c?.txt";
    {
        const auto answers = answerDialog("fine.txt", IDOK);
        dialog.showSave();
    }
    EXPECT_EQ((folder / "fine.txt").string(), dialog.fileName);
}

using Timers = ScreenTest;

TEST_F(Timers, TickWhileMessagesAreServed) {
    int ticks = 0;
    Timer timer(desktop());
    timer.onTimer = [&ticks] { ++ticks; };
    timer.setInterval(20);
    const DWORD start = GetTickCount();
    timer.setEnabled(true);
    EXPECT_TRUE(pumpUntil([&ticks] { return ticks == 3; }));
    EXPECT_GE(GetTickCount() - start, 55U);
    timer.setEnabled(false);
    Sleep(60); // long enough for three more
    pump();
    EXPECT_EQ(3, ticks);
}

TEST_F(Timers, EndAWait) {
    int ticks = 0;
    Timer timer(desktop());
    timer.onTimer = [&ticks] { ++ticks; };
    timer.setInterval(20);
    timer.setEnabled(true);
    while (ticks < 2 && desktop().waitForEvents()) {
    }
    EXPECT_GE(ticks, 2);
}

TEST_F(Timers, AreNeverTwiceAtOnce) {
    int inside = 0;
    int most = 0;
    int ticks = 0;
    Timer timer(desktop());
    timer.onTimer = [&] {
        most = std::max(most, ++inside);
        ++ticks;
        Sleep(40); // the next one is due
        desktop().doEvents();
        --inside;
    };
    timer.setInterval(15);
    timer.setEnabled(true);
    EXPECT_TRUE(pumpUntil([&ticks] { return ticks >= 3; }));
    EXPECT_EQ(1, most);
}

class LateText : public ScreenTest {
  protected:
    /// Counts how often a label's window is written.
    void watch(Label& label) {
        written = 0;
        label_ = windowOf(label);
        before = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrA(label_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&LateText::procedure)));
    }

    /// More than once, since the first text goes through at once where none has gone for long.
    static void writeThree(Label& label) {
        for (const char* text : {"one", "two", "three"}) label.setCaption(text);
    }

    std::string onScreen() const {
        char text[64] = {};
        GetWindowTextA(label_, text, sizeof text);
        return text;
    }

    static inline int written = 0;

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_SETTEXT) ++written;
        return CallWindowProcA(before, window, message, wParam, lParam);
    }

    static inline WNDPROC before = nullptr;
    HWND label_ = nullptr;
};

TEST_F(LateText, ReachesTheScreenAFewTimesASecond) {
    const auto form = shownForm();
    watch(form->lblName);
    form->run([&] {
        const DWORD start = GetTickCount();
        for (int i = 0; i < 20000; ++i) {
            form->lblName.setCaption("LN: " + std::to_string(i));
            desktop().doEvents();
        }
        const DWORD took = GetTickCount() - start;
        EXPECT_EQ("LN: 19999", form->lblName.caption());
        EXPECT_GE(written, 1);
        EXPECT_LE(written, static_cast<int>(took / 40) + 2);
    });
    EXPECT_EQ("LN: 19999", onScreen());
}

TEST_F(LateText, IsThereWhenTheHandlerHasEnded) {
    const auto form = shownForm();
    watch(form->lblName);
    form->run([&] { writeThree(form->lblName); });
    EXPECT_EQ("three", onScreen());
}

TEST_F(LateText, IsThereWhenATimersHandlerHasEnded) {
    const auto form = shownForm();
    watch(form->lblName);
    Timer timer(desktop());
    timer.setInterval(10000);
    timer.onTimer = [&] { writeThree(form->lblName); };
    timer.setEnabled(true);
    timer.ticked();
    EXPECT_EQ("three", onScreen());
}

TEST_F(LateText, IsThereBeforeAWindowShows) {
    const auto form = shownForm();
    const auto other = std::make_shared<EveryControl>(desktop());
    other->load();
    watch(other->lblName);
    form->run([&] {
        writeThree(other->lblName);
        other->show();
        EXPECT_EQ("three", onScreen());
    });
    other->unload();
}

TEST_F(LateText, DoesNotWaitOutsideAHandler) {
    const auto form = shownForm();
    watch(form->lblName);
    for (const char* text : {"one", "two", "three"}) {
        form->lblName.setCaption(text);
        EXPECT_EQ(text, onScreen());
    }
}

TEST_F(LateText, IsThereWhenTheProgramWaits) {
    const auto form = shownForm();
    watch(form->lblName);
    form->run([&] {
        writeThree(form->lblName);
        PostMessageA(windowOf(*form), WM_NULL, 0, 0);
        desktop().waitForEvents();
        EXPECT_EQ("three", onScreen());
    });
}

TEST_F(LateText, IsThereBehindAMessageBox) {
    const auto form = shownForm();
    watch(form->lblName);
    std::string seen;
    form->run([&] {
        writeThree(form->lblName);
        const Helper answers([&] {
            const HWND box = waitForBox("Corvelle");
            seen = onScreen();
            PostMessageA(box, WM_COMMAND, IDOK, 0);
        });
        desktop().msgBox("Look", 0);
    });
    EXPECT_EQ("three", seen);
}

TEST_F(LateText, ArrivesWithoutAnythingElseHappening) {
    const auto form = shownForm();
    watch(form->lblName);
    form->run([&] {
        writeThree(form->lblName);
        MSG message; // a host's loop, which calls nothing of ours
        const DWORD start = GetTickCount();
        while (onScreen() != "three" && GetTickCount() - start < 2000) {
            if (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageA(&message);
        }
        EXPECT_EQ("three", onScreen());
    });
}

TEST_F(LateText, OfAnUnloadedFormIsForgotten) {
    const auto form = shownForm();
    form->run([&] {
        writeThree(form->lblName);
        form->unload();
    });
    EXPECT_FALSE(form->isLoaded());
}

TEST_F(ScreenTest, HelpIsAskedForWithTheCallersWindow) {
    struct Request {
        HWND caller;
        std::string file;
        UINT command;
        DWORD_PTR data;
    };
    static std::vector<Request> requests;
    requests.clear();
    desktop().help().setViewer([](HWND caller, LPCSTR file, UINT command, DWORD_PTR data) WINAPI -> HWND {
        requests.push_back({caller, file ? file : "", command, data});
        return nullptr;
    });
    const auto form = shownForm();
    desktop().showHelp(&form->txtName, "C:\\a b\\x.chm", 15, 1000);
    desktop().showHelp(&form->cmdOk, "C:\\y.chm", 1, 0);
    ASSERT_EQ(requests.size(), 2U);
    EXPECT_EQ(requests[0].caller, windowOf(form->txtName));
    EXPECT_EQ(requests[0].file, "C:\\a b\\x.chm");
    EXPECT_EQ(requests[0].command, 15U);
    EXPECT_EQ(requests[0].data, 1000U);
    EXPECT_EQ(requests[1].caller, windowOf(form->cmdOk));
    EXPECT_EQ(requests[1].command, 1U);
}

TEST_F(ScreenTest, HelpOfAFileThatIsNotThereDoesNoHarm) {
    const auto form = shownForm();
    desktop().showHelp(&form->txtName, "C:\\nowhere\\none.chm", 15, 1000);
    desktop().showHelp(nullptr, "C:\\nowhere\\none.chm", 1, 0);
    EXPECT_TRUE(form->visible());
}

class Resolution : public ScreenTest, public testing::WithParamInterface<int> {};

TEST_P(Resolution, ScalesPlacesSizesAndFonts) {
    const int dpi = GetParam();
    useDpi(dpi);
    const auto form = shownForm();
    RECT inside{};
    GetClientRect(windowOf(*form), &inside);
    EXPECT_EQ(6000 * dpi / 1440, inside.right);
    EXPECT_EQ(4500 * dpi / 1440, inside.bottom);
    RECT place{};
    GetWindowRect(windowOf(form->cmdOk), &place);
    MapWindowPoints(nullptr, windowOf(*form), reinterpret_cast<POINT*>(&place), 2);
    EXPECT_EQ(4560 * dpi / 1440, place.left);
    EXPECT_EQ(120 * dpi / 1440, place.top);
    EXPECT_EQ(1320 * dpi / 1440, place.right - place.left);
    LOGFONTA font{};
    GetObjectA(reinterpret_cast<HFONT>(SendMessageA(windowOf(form->cmdOk), WM_GETFONT, 0, 0)), sizeof font,
               &font);
    EXPECT_EQ(-MulDiv(8, dpi, 72), font.lfHeight);
    EXPECT_STREQ("MS Shell Dlg", font.lfFaceName);
    EXPECT_EQ(1500 * dpi / 1440, form->srfDraw.canvas().width());
    EXPECT_EQ((Size{6000, 4500}), form->size());
}

INSTANTIATE_TEST_SUITE_P(Dpi, Resolution, testing::Values(96, 120, 144));

} // namespace

} // namespace corvelle::forms::tests
