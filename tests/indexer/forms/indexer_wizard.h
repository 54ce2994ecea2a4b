#pragma once

#include "base/temporary_folder.h"
#include "fakes/fake_ide.h"
#include "fakes/open_files.h"
#include "forms/headless/headless_desktop.h"
#include "indexer/forms/frm_indexer.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace corvelle::indexer::test {

/// A connect object that owns the wizard, as the real one does.
class FakeManager : public ui::WindowOwner {
  public:
    std::shared_ptr<FrmIndexer> wizard;
    int hides = 0; ///< of a wizard that was still there

    void Hide() override;
    /// What a disconnection does.
    void disconnect();
};

/// The wizard over a fake IDE, with a scripted user. The setting holds the path of an exclusion list that
/// names no class, so that nothing is asked at the start.
class IndexerWizard {
  public:
    IndexerWizard();
    ~IndexerWizard();
    IndexerWizard(const IndexerWizard&) = delete;
    IndexerWizard& operator=(const IndexerWizard&) = delete;

    using Controls = std::vector<std::pair<std::string, std::string>>; // name and class
    std::shared_ptr<corvelle::test::FakeComponent> add(const std::string& name, ide::ComponentType type,
                                                       const Controls& controls = {});
    /// A module, a form with two controls and one with three, of which one is a label.
    void addExample();

    /// Makes the wizard and shows it as the connect object does.
    FrmIndexer& show();
    /// Shows it, analyses and goes to stage 2, where the paths of both index files are filled in.
    FrmIndexer& showStageTwo();
    /// Fills in the mapping module's name and file too, with its two options checked; in stage 2.
    void wantModule(FrmIndexer& form) const;
    bool click(forms::Control& control) { return desktop.click(control); }

    std::string pathOf(const std::string& name) const { return (folder.path() / name).string(); }
    std::string header() const { return folder.read("a.h"); }
    std::string configuration() const { return folder.read("a.hcnf"); }
    static std::vector<std::string> reportLines(FrmIndexer& form);
    static bool indicatorRuns(FrmIndexer& form);
    std::ptrdiff_t openFiles() const { return corvelle::test::openFiles(folder.path()); }
    /// The last message box as "title|flags|text" with "/" for a carriage return; empty if none was shown.
    std::string lastBox() const;

    corvelle::test::TemporaryFolder folder;
    forms::HeadlessDesktop desktop;
    std::shared_ptr<corvelle::test::FakeIde> ide = corvelle::test::FakeIde::make();
    corvelle::test::Calls& calls = *ide->calls;
    std::shared_ptr<FakeManager> manager = std::make_shared<FakeManager>();
    std::tuple<std::string, std::string, std::string> listSetting{"Trellis", "Indexer", "ExcludeList_Path"};

    static const base::RunTimeError disaster;
};

/// What an index of the example holds when all its controls are indexed.
extern const char* const exampleHeader;
extern const char* const exampleConfiguration;

} // namespace corvelle::indexer::test
