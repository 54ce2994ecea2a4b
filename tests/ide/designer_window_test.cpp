#include "base/temporary_folder.h"
#include "ide/workspace/workspace.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvelle::workspace {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Recorder : WorkspaceObserver {
    std::vector<std::string> told;

    void designerChanged(Component& component) override {
        const auto& window = *component.designerWindow();
        told.push_back(component.Name() + (!window.isOpen()     ? " closed"
                                           : window.isVisible() ? " visible"
                                                                : " open"));
    }
    void designerFocused(Component& component) override { told.push_back(component.Name() + " focused"); }
    void codeActivated(Component& component) override { told.push_back(component.Name() + " code"); }
};

struct DesignerWindowTest : testing::Test {
    DesignerWindowTest() {
        folder.write("f.frm", "VERSION 5.00\r\nBegin VB.Form frm\r\nEnd\r\n");
        folder.write("m.bas", "Attribute VB_Name = \"mod\"\r\n");
        ide = Workspace::open(folder.write("p.vbp", "Form=f.frm\r\nModule=mod; m.bas\r\n"));
        ide->setObserver(&observer);
    }
    ~DesignerWindowTest() override { ide->setObserver(nullptr); }

    std::shared_ptr<ide::VBComponent> component(const char* name) {
        return ide->ActiveVBProject()->VBComponents()->Item(name);
    }

    test::TemporaryFolder folder;
    Recorder observer;
    std::shared_ptr<Workspace> ide;
};

TEST_F(DesignerWindowTest, IsOpenedInvisible) {
    EXPECT_NE(component("frm")->DesignerWindow(), nullptr);
    component("frm")->DesignerWindow();
    EXPECT_THAT(observer.told, ElementsAre("frm open"));
}

TEST_F(DesignerWindowTest, IsShownByActivateAndClosedByClose) {
    component("frm")->Activate();
    const auto window = component("frm")->DesignerWindow();
    window->SetFocus();
    window->Close();
    window->Close();
    EXPECT_THAT(observer.told, ElementsAre("frm visible", "frm focused", "frm focused", "frm closed"));
}

TEST_F(DesignerWindowTest, IsShownAndHidden) {
    auto* window = ide->projects().front()->components().front()->designerWindow();
    window->setVisible(true);
    window->setVisible(true);
    window->setVisible(false);
    EXPECT_THAT(observer.told, ElementsAre("frm visible", "frm open"));
    EXPECT_EQ(window->Caption(), "frm (Form)");
}

TEST_F(DesignerWindowTest, IsMissingForAModuleWhoseCodeIsActivated) {
    EXPECT_EQ(component("mod")->DesignerWindow(), nullptr);
    EXPECT_EQ(ide->projects().front()->components().back()->designerWindow(), nullptr);
    component("mod")->Activate();
    EXPECT_THAT(observer.told, ElementsAre("mod code"));
}

TEST_F(DesignerWindowTest, TellsOfNewModulesToo) {
    ide->ActiveVBProject()->VBComponents()->Add(ide::ComponentType::StdModule)->Activate();
    EXPECT_THAT(observer.told, ElementsAre("Module1 code"));
}

TEST_F(DesignerWindowTest, TellsNobodyOnceTheObserverIsTakenAway) {
    ide->setObserver(nullptr);
    component("frm")->Activate();
    component("mod")->Activate();
    EXPECT_THAT(observer.told, IsEmpty());
}

} // namespace
} // namespace corvelle::workspace
