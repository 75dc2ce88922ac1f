// A host and a machine for tests: writes down every way that leads out of the control, and lets a test do
// something inside it.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "webdata/HostEvents.h"
#include "widgets/Platform.h"

namespace dlv::test {

class TestHost : public Platform, public HostEvents {
public:
    /// Ways out in their order: "PostRequest TEXT", "event NUMBER", a form's name, "box TEXT", "messages";
    /// before each a "flush".
    std::vector<std::string> ways;
    /// What happens inside a way out, by what was written down for it.
    std::function<void(const std::string& way)> inside = [](const std::string&) {};
    /// What a person does with a form that is shown.
    std::function<void(ModalForm& form)> work = [](ModalForm&) {};
    Answer answer = Answer::Ok;
    TimeOfDay now = 0;
    double width = Pixels(1000);
    double height = Pixels(700);

    /// The ways out without what happens at each.
    std::vector<std::string> Shown() const {
        std::vector<std::string> shown;
        for (const std::string& way : ways)
            if (way != "flush" && way != "messages") shown.push_back(way);
        return shown;
    }

    void PostRequest(const std::string& request) override { GoOut("PostRequest " + request); }
    void Raise(HostEvent event, const DLVParams& params) override {
        lastParams = params;
        GoOut("event " + std::to_string(static_cast<int>(event)));
    }
    DLVParams lastParams;

    TimeOfDay Now() override { return now; }
    LocaleTime TimeSettings() override { return {}; }
    std::string InterfaceLanguage() override { return "EN"; }
    double SurfaceWidth() override { return width; }
    double SurfaceHeight() override { return height; }
    double TextWidth(std::string_view text, bool) override {
        return Pixels(6) * static_cast<double>(text.size());
    }
    void Flush() override { ways.emplace_back("flush"); }
    void ShowModal(ModalForm& form) override {
        GoOut(form.Name());
        work(form);
    }
    Answer ShowMessageBox(const MessageBox& box) override {
        GoOut("box " + box.text);
        return answer;
    }
    void ShowProfileMenu() override { GoOut("profile menu"); }
    void ProcessPendingMessages() override { GoOut("messages"); }

private:
    void GoOut(const std::string& way) {
        ways.push_back(way);
        inside(way);
    }
};

}  // namespace dlv::test
