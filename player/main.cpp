// play [--visible] [--language EN|PO|SP] SESSION.json : plays a recorded session without any window and
// writes its transcript to standard output, with --visible the part of it that is to be seen on a screen.
// play --check SESSION.json : plays it and says where it raises other events than were recorded with it; the
// exit status is then 1.
// Exit status 2 for a session that cannot be played, with the reason on standard error.

#include <cstdio>
#include <fstream>
#include <functional>
#include <iostream>
#include <iterator>

#include "player/RecordingCheck.h"
#include "player/SessionPlayer.h"
#include "ui/BuiltInCaptions.h"

namespace {

constexpr int kDifferent = 1;
constexpr int kUnusable = 2;

int Usage() {
    std::fputs(
        "usage: play [--visible] [--language EN|PO|SP] SESSION.json\n       play --check SESSION.json\n",
        stderr);
    return kUnusable;
}

/// What `play` does with the content of a file.
int WithFile(const std::string& path, const std::function<int(const std::string& document)>& play) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        std::fprintf(stderr, "play: %s cannot be read\n", path.c_str());
        return kUnusable;
    }
    const std::string document{std::istreambuf_iterator<char>(file), {}};
    try {
        return play(document);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "play: %s: %s\n", path.c_str(), error.what());
    }
    return kUnusable;
}

int Check(const std::string& document) {
    const auto differences = dlv::player::RecordingDifferences(document);
    for (const std::string& line : differences) std::cout << line << '\n';
    std::cout << (differences.empty() ? "all events are as recorded" : "not as recorded") << std::endl;
    return differences.empty() ? 0 : kDifferent;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc == 3 && std::string(argv[1]) == "--check") return WithFile(argv[2], Check);
    std::optional<std::string> language;
    auto told = dlv::player::Told::State;
    int next = 1;
    if (argc > 2 && std::string(argv[next]) == "--visible") {
        told = dlv::player::Told::Visible;
        ++next;
    }
    if (argc > next + 2 && std::string(argv[next]) == "--language") {
        language = argv[next + 1];
        next += 2;
        if (!dlv::HasBuiltInLanguage(*language)) return Usage();
    }
    if (next != argc - 1) return Usage();
    return WithFile(argv[next], [&](const std::string& document) {
        std::cout << dlv::player::PlaySession(dlv::player::ReadSteps(document), language, told) << std::flush;
        return 0;
    });
}
