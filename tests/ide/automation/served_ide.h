#pragma once

#include "base/temporary_folder.h"
#include "com/dispatch.h"
#include "com/object.h"
#include "ide/automation/automation.h"
#include "workbench/model/vbe_object.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace corvelle::test {

/// A program around a workspace, as far as its object model asks for one.
struct Program : workbench::WorkbenchHost {
    std::shared_ptr<workspace::Workspace> ide;
    workspace::Menus menuModel;
    std::vector<workspace::Component*> panes;
    workspace::Component* selected = nullptr;
    com::Ptr<IDispatch> addInModel;
    std::vector<std::string> done;

    std::shared_ptr<workspace::Workspace> workspace() override { return ide; }
    workspace::Menus& menus() override { return menuModel; }
    std::vector<workspace::Component*> codePanes() override { return panes; }
    void showCode(workspace::Component& component) override {
        done.push_back("show " + component.Name());
        ide->setActiveCodePane(&component);
    }
    workspace::Component* selectedComponent() override { return selected; }
    HWND mainWindow() override { return GetDesktopWindow(); }
    com::Ptr<IDispatch> addIns() override { return addInModel; }
    void quit() override { done.emplace_back("quit"); }
};

/// A project of a form, a class and a module, served as Automation objects and reached through them again. At
/// the end every object must be gone.
class ServedIde : public testing::Test {
  protected:
    ServedIde() {
        folder.write("frmMain.frm",
                     "VERSION 5.00\r\nBegin VB.Form frmMain\r\n   Begin VB.Label lblOne\r\n   End\r\n"
                     "   Begin RICHTEXT.RichTextBox rtf\r\n   End\r\nEnd\r\n"
                     "Attribute VB_Name = \"frmMain\"\r\nSub Form_Load()\r\nEnd Sub\r\n");
        folder.write("Klass.cls", "VERSION 1.0 CLASS\r\nBEGIN\r\n  MultiUse = -1\r\nEND\r\n"
                                  "Attribute VB_Name = \"Klass\"\r\n'1\r\n'2\r\n'3\r\n");
        folder.write("modMain.bas", "Attribute VB_Name = \"modMain\"\r\nSub Main()\r\nEnd Sub\r\n");
        projectPath =
            folder
                .write("Project.vbp", "Type=OleDll\r\nForm=frmMain.frm\r\nClass=Klass; Klass.cls\r\n"
                                      "Module=modMain; modMain.bas\r\nName=\"Proj\"\r\n")
                .string();
        program->ide = workspace::Workspace::open(projectPath);
    }
    ~ServedIde() override {
        vbe.reset();
        served.reset();
        program.reset();
        EXPECT_EQ(com::objectCount(), objectsBefore);
    }

    workspace::Component& component(std::size_t index) {
        return *program->ide->projects().front()->components()[index];
    }

    const long objectsBefore = com::objectCount();
    TemporaryFolder folder;
    std::string projectPath;
    std::shared_ptr<Program> program = std::make_shared<Program>();
    com::Ptr<IDispatch> served = workbench::serveVBE(program);
    std::shared_ptr<ide::VBE> vbe = automation::vbe(served.get());
};

} // namespace corvelle::test
