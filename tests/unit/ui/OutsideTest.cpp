// The ways out of the control, and the error dialog that goes one of them.
#include "ui/Outside.h"

#include <gtest/gtest.h>

#include "base/Trap.h"
#include "tests/support/TestHost.h"
#include "ui/frmError.h"

namespace dlv {

namespace {

class WaysOut : public testing::Test {
protected:
    std::vector<std::function<void()>> All() {
        return {[&] { outside_.PostRequest("x"); }, [&] { outside_.Raise(HostEvent::GetDetails, {}); },
                [&] { outside_.ShowModal(form_); }, [&] { outside_.ShowMessageBox({}); },
                [&] { outside_.ProcessPendingMessages(); }};
    }

    test::TestHost host_;
    Outside outside_{host_, host_};
    frmError form_{outside_};
};

TEST_F(WaysOut, BringTheWindowsUpToDateFirst) {
    for (const auto& go : All()) {
        host_.ways.clear();
        go();
        ASSERT_EQ(host_.ways.size(), 2u);
        EXPECT_EQ(host_.ways[0], "flush") << host_.ways[1];
    }
}

TEST_F(WaysOut, GiveTheAnswerBack) {
    host_.answer = Answer::Yes;
    EXPECT_EQ(outside_.ShowMessageBox({}), Answer::Yes);
}

class LastWayOut : public WaysOut, public testing::WithParamInterface<std::size_t> {};

TEST_P(LastWayOut, IsTheOneInWhichTheControlIsStopped) {
    host_.inside = [&](const std::string&) { outside_.Close(); };
    EXPECT_THROW(All()[GetParam()](), ControlStopped) << "what was under way does not go on";
    EXPECT_EQ(host_.ways.size(), 2u);
    for (const auto& go : All()) EXPECT_THROW(go(), ControlStopped);
    EXPECT_EQ(host_.ways.size(), 2u) << "none leads out any more";
}

INSTANTIATE_TEST_SUITE_P(Each, LastWayOut, testing::Range<std::size_t>(0, 5));

class ErrorDialog : public WaysOut {
protected:
    Frame frame_{"fraDLV"};
    ModalOwner owner_{frame_};
    std::vector<std::string> texts_;

    void SetUp() override {
        host_.work = [&](ModalForm& form) {
            EXPECT_FALSE(frame_.Enabled()) << "its owner is disabled while it is open";
            texts_ = {form.Caption()};
            for (Control* control : form.Controls())
                texts_.push_back(static_cast<CaptionControl*>(control)->Caption());
            form.Click(static_cast<frmError&>(form).cmdCont);
            EXPECT_TRUE(form.Closed());
        };
    }
};

TEST_F(ErrorDialog, ShowsNumberTextAndPlaceInEnglishWithoutACatalogue) {
    ReportError(outside_, -7, "Some <b> & text", "DLViewer.ShowBUs", nullptr, &owner_);
    EXPECT_EQ(
        texts_,
        (std::vector<std::string>{
            "An Error Has Occurred", "Dashlon Viewer has experienced the following problem:", "Error:", "-7",
            "Description:", "Some <b> & text", "Function:", "DLViewer.ShowBUs",
            "If you continue to experience problems with Dashlon Viewer, please reload the application. If "
            "problems persist, contact your system administrator.",
            "Continue"}));
    EXPECT_TRUE(frame_.Enabled());
    EXPECT_EQ(host_.ways, (std::vector<std::string>{"flush", "frmError", "flush", "messages"}))
        << "pending messages are processed once afterwards";
}

TEST_F(ErrorDialog, SpeaksTheLanguageOfTheCatalogue) {
    CaptionCatalogue captions;
    captions.Attach(nullptr, "SP");
    ReportError(outside_, 1, "", "", &captions, &owner_);
    EXPECT_EQ(texts_.front(), "Se ha producido un error");
    EXPECT_EQ(texts_.back(), "Continuar");
}

TEST_F(ErrorDialog, GivesTheFrameBackWhenTheOutermostOneCloses) {
    int open = 0;
    host_.work = [&](ModalForm&) {
        if (++open == 2) return;
        ReportError(outside_, 2, "inner", "", nullptr, &owner_);
        EXPECT_FALSE(frame_.Enabled()) << "the outer one is still open";
    };
    ReportError(outside_, 1, "outer", "", nullptr, &owner_);
    EXPECT_TRUE(frame_.Enabled());
}

TEST_F(ErrorDialog, GivesTheFrameBackWhenAStopClosesIt) {
    host_.work = [&](ModalForm&) { outside_.Close(); };
    EXPECT_THROW(ReportError(outside_, 1, "", "", nullptr, &owner_), ControlStopped);
    EXPECT_TRUE(frame_.Enabled());
}

}  // namespace

}  // namespace dlv
