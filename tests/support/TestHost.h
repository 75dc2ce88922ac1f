// A host and a machine for tests: writes down every way that leads out of the control, and lets a test do
// something inside it.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "base/RunTimeError.h"
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
    MessageBox lastBox;
    /// The file that is chosen, and the files and pages that came of it.
    std::string file;
    SaveDialog lastDialog;
    std::map<std::string, std::string> files;
    std::vector<PrintedPage> pages;
    Paper paper{.width = 16838, .height = 11906};
    /// After how many bytes the disk is full, and after how many pages the printer fails.
    std::size_t diskRoom = ~std::size_t{0};
    std::size_t printerPages = ~std::size_t{0};
    /// False when no printer is chosen.
    bool printerChosen = true;
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
    std::string DateAndTime() override { return "21/11/2026 09:00"; }
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
        lastBox = box;
        GoOut("box " + box.text);
        return answer;
    }
    std::string ChooseSaveFile(const SaveDialog& dialog) override {
        lastDialog = dialog;
        GoOut("save in \"" + dialog.folder + "\"");
        return file;
    }
    std::unique_ptr<OutputFile> MakeFile(const std::string& name) override {
        return std::make_unique<KeptFile>(*this, name);
    }
    std::unique_ptr<Printer> ChoosePrinter(Printer::Orientation proposed) override {
        GoOut(proposed == Printer::Orientation::Landscape ? "print landscape" : "print portrait");
        return printerChosen ? std::make_unique<KeptPrinter>(*this) : nullptr;
    }
    void ShowProfileMenu() override { GoOut("profile menu"); }
    void ProcessPendingMessages() override { GoOut("messages"); }

private:
    class KeptFile : public OutputFile {
    public:
        KeptFile(TestHost& host, std::string name) : host_(host), name_(std::move(name)) {}
        void Write(std::string_view bytes) override {
            if (text_.size() + bytes.size() > host_.diskRoom) RaiseDevice();
            text_ += bytes;
        }
        void Keep() override { host_.files[name_] = text_; }

    private:
        TestHost& host_;
        std::string name_;
        std::string text_;
    };

    class KeptPrinter : public Printer {
    public:
        explicit KeptPrinter(TestHost& host) : host_(host) {}
        dlv::Paper Paper() const override { return host_.paper; }
        bool Wants(int) const override { return true; }
        void Begin(const std::string& documentName) override { host_.GoOut("document " + documentName); }
        void Print(const PrintedPage& page) override {
            if (host_.pages.size() == host_.printerPages) RaisePrinter();
            host_.pages.push_back(page);
        }
        void End() override { host_.ways.emplace_back("printed"); }

    private:
        TestHost& host_;
    };

    void GoOut(const std::string& way) {
        ways.push_back(way);
        inside(way);
    }
};

}  // namespace dlv::test
