#include "forms/headless/headless_peer.h"
#include "indexer/forms/text_editor_session.h"

#include <gmock/gmock.h>

namespace corvelle::indexer::test {
namespace {

using testing::ElementsAre;

// Notes what the status line shows, with the pointer and the indicator that are shown meanwhile.
class StatusDesktop : public forms::HeadlessDesktop {
  public:
    std::vector<std::string> statuses;
    std::function<bool()> indicatorRuns = [] { return false; };

    std::unique_ptr<forms::FormPeer> makePeer(forms::Form& form) override {
        auto peer = std::make_unique<Peer>(*this, static_cast<FrmTxt&>(form));
        forms::HeadlessPeer::sizeSurface(static_cast<FrmTxt&>(form).IndicSurface);
        return peer;
    }

  private:
    class Peer : public forms::HeadlessPeer {
      public:
        Peer(StatusDesktop& desktop, FrmTxt& form)
            : HeadlessPeer(desktop, form), desktop_(desktop), form_(form) {}

        void controlChanged(forms::Control& control, forms::Aspect aspect) override {
            HeadlessPeer::controlChanged(control, aspect);
            if (&control != &form_.Lblstat) return;
            const bool waits = form_.mousePointer() == forms::MousePointer::Hourglass;
            desktop_.statuses.push_back(form_.Lblstat.caption() + (waits ? "|hourglass" : "") +
                                        (desktop_.indicatorRuns() ? "|runs" : ""));
        }

      private:
        StatusDesktop& desktop_;
        FrmTxt& form_;
    };
};

class TextEntryStatus : public testing::Test, protected TextEditorSession {
  protected:
    TextEntryStatus() {
        watched.onUnexpected = [](const std::string& what) { ADD_FAILURE() << what; };
        form->ShowTextEdit(ide, nullptr);
        watched.statuses.clear();
        watched.indicatorRuns = [this] { return isAnimated(*form); };
        watched.chooseNextFile(pathOf("p.icp"));
        watched.click(form->Command2);
    }
    ~TextEntryStatus() override { form->unload(); }

    StatusDesktop watched;
    std::shared_ptr<FrmTxt> form = std::make_shared<FrmTxt>(watched);
};

TEST_F(TextEntryStatus, TellsEveryStepOfALoading) {
    EXPECT_THAT(watched.statuses,
                ElementsAre(" Status: Ready to load data....", " Status: Loading Mappings..|hourglass|runs",
                            " Status: Finished loading Mappings..|hourglass|runs",
                            " Status: Finished loading Text entries...|hourglass|runs",
                            " Status: Ready to accept Text entries..."));
}

TEST_F(TextEntryStatus, TellsEveryStepOfASaving) {
    watched.answerNextBox(forms::answer::yes);
    watched.click(form->CmdDel);
    watched.statuses.clear();
    watched.answerNextBox(forms::answer::ok, [this] {
        EXPECT_EQ(watched.statuses.back(), "Status: Saving Text file.."); // until the box is answered
    });
    watched.click(form->CmdProc);
    EXPECT_THAT(watched.statuses, ElementsAre("Status: Saving Configuration and Index file..",
                                              "Status: Configuration and Index files saved..",
                                              "Status: Saving Text file..", "Status: Text file saved.."));
}

} // namespace
} // namespace corvelle::indexer::test
