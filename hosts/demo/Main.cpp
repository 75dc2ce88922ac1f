// The demo host: see kUsage.
#include <windows.h>

#include <shellapi.h>
#include <shlobj.h>

#include <cstdio>
#include <exception>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <vector>

#include "hosts/container/Library.h"
#include "hosts/demo/DemoWindow.h"
#include "hosts/demo/PictureRun.h"
#include "hosts/demo/PlainHolder.h"
#include "hosts/demo/Smoke.h"
#include "hosts/demo/workday/SharedFile.h"
#include "windows/com/Strings.h"

namespace {

using namespace dlv::demo;

constexpr int kFailed = 1;
constexpr int kMisused = 2;

std::vector<std::string> Arguments() {
    int count = 0;
    wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int i = 1; i < count; ++i) arguments.push_back(dlv::Narrow(std::wstring_view(words[i])));
    LocalFree(words);
    return arguments;
}

/// A file to be written, if one is wanted; throws when it cannot be.
std::unique_ptr<std::ofstream> WrittenFile(const std::string& path) {
    if (path.empty()) return nullptr;
    auto file = std::make_unique<std::ofstream>(PathOf(path), std::ios::binary);
    if (!*file) throw std::runtime_error(path + " cannot be written");
    return file;
}

bool RunWindow(const Options& options) {
    const auto calls = WrittenFile(options.callsFile);
    const auto session = WrittenFile(options.sessionFile);
    using Texts = dlv::recorder::SessionRecorder::Texts;
    std::shared_ptr<dlv::container::Recorder> callRecorder;
    if (calls) callRecorder = std::make_shared<dlv::container::Recorder>(*calls);
    std::shared_ptr<dlv::recorder::SessionRecorder> sessionRecorder;
    if (session)
        sessionRecorder = std::make_shared<dlv::recorder::SessionRecorder>(
            *session, options.masked ? Texts::Masked : Texts::AsTheyAre);
    DemoWindow window(options, std::make_unique<PlainHolder>(callRecorder), callRecorder, sessionRecorder);
    if (!window.Create()) {
        std::fputs("demo: no window could be made\n", stderr);
        return false;
    }
    if (options.mode == Options::Mode::Pictures) return PictureRun(window, options).Run();
    window.StartControl(options.language, options.profile);
    window.RunMessages();
    return true;
}

/// What is kept for a person is kept among what is theirs; pictures always begin alike.
std::string UsersFolder() {
    wchar_t* folder = nullptr;
    const HRESULT found = SHGetKnownFolderPath(FOLDERID_LocalAppData, KF_FLAG_CREATE, nullptr, &folder);
    const std::string path =
        SUCCEEDED(found) ? dlv::Narrow(std::wstring_view(folder)) + "\\DashlonViewer\\Demo" : std::string();
    CoTaskMemFree(folder);
    return path;
}

bool Run(Options options) {
    if (options.mode == Options::Mode::Interactive && options.profilesFolder.empty())
        options.profilesFolder = UsersFolder();
    const dlv::container::Library library(dlv::container::BesideProgram(L"DashlonViewer.manifest"));
    const dlv::container::Library::Scope classesAreKnown(library);
    return options.mode == Options::Mode::Smoke ? RunSmoke(options) : RunWindow(options);
}

struct Ole {
    Ole() { OleInitialize(nullptr); }
    ~Ole() { OleUninitialize(); }
};

}  // namespace

int main() {
    try {
        const auto options = ParseOptions(Arguments());
        if (!options || options->mode == Options::Mode::Help) {
            std::fputs(kUsage, options ? stdout : stderr);
            return options ? 0 : kMisused;
        }
        const Ole ole;
        return Run(*options) ? 0 : kFailed;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "demo: %s\n", error.what());
        return kFailed;
    }
}
