// A control with a test's host around it, and the messages that it is given.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "control/ControlState.h"
#include "control/DLViewer.h"
#include "tests/support/TestHost.h"
#include "webdata/QZWebMessage.h"

namespace dlv::test {

using Rows = std::vector<std::vector<std::string>>;

/// The tables of a data message. Rows may leave columns out at their end.
struct Tables {
    Rows units;
    Rows general;
    Rows details;
    Rows types{};
    Rows classes{};
    Rows formats{{"EN", "hh:nn"}};

    std::shared_ptr<QZWebMessage> Message() const;
};

/// Two units under a root, with a detail row each: what a good message leads to.
Tables GoodTables();

class TestViewer {
public:
    TestHost host;
    DLViewer viewer{host, host};

    /// Brings the control to where it waits for data; the profile has no settings.
    void Start(const std::vector<std::string>& sessionUnits);
    void Receive(std::shared_ptr<const MessageSource> message);
    void Receive(const Tables& tables) { Receive(tables.Message()); }
    /// Selects all listed units and presses View.
    void ViewAll(int unitOption = 0);

    OutlineGrid& Grid(int index) { return viewer.Controls().vsFlex[index]; }
    /// The cells of a row, joined by blanks.
    std::string Row(int grid, int row);
    /// Gives it `GoodTables` and holds all that is seen against what it should be.
    void ExpectThatTheNextGoodMessageWorks();
};

}  // namespace dlv::test
