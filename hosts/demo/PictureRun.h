// Goes through the views of the control as a person would and leaves a picture of each.
#pragma once

#include <string>

#include "hosts/demo/DemoWindow.h"

namespace dlv::demo {

class PictureRun {
public:
    /// `window` has been created.
    PictureRun(DemoWindow& window, const Options& options) : window_(window), options_(options) {}

    /// Runs until the last picture is there. False, with the reason on standard error, when one is missing.
    bool Run();

private:
    void FiguresCame();
    bool Save(const wchar_t* name);
    void End(bool complete);

    DemoWindow& window_;
    const Options& options_;
    int refreshes_ = 0;
    bool summaryDone_ = false;
    bool complete_ = false;
};

}  // namespace dlv::demo
