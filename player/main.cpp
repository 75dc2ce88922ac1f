// play [--visible] [--language EN|PO|SP] SESSION.json : plays a recorded session without any window and
// writes its transcript to standard output, with --visible the part of it that is to be seen on a screen.
// Exit status 2 for a session that cannot be played, with the reason on standard error.

#include <cstdio>
#include <fstream>
#include <iostream>
#include <iterator>

#include "player/SessionPlayer.h"
#include "ui/BuiltInCaptions.h"

namespace {

constexpr int kUnusable = 2;

int Usage() {
    std::fputs("usage: play [--visible] [--language EN|PO|SP] SESSION.json\n", stderr);
    return kUnusable;
}

int Play(const std::string& path, const std::optional<std::string>& language, dlv::player::Told told) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        std::fprintf(stderr, "play: %s cannot be read\n", path.c_str());
        return kUnusable;
    }
    const std::string document{std::istreambuf_iterator<char>(file), {}};
    try {
        std::cout << dlv::player::PlaySession(dlv::player::ReadSteps(document), language, told) << std::flush;
        return 0;
    } catch (const dlv::player::SessionError& error) {
        std::fprintf(stderr, "play: %s: %s\n", path.c_str(), error.what());
    } catch (const std::exception& error) {
        std::fprintf(stderr, "play: %s: %s\n", path.c_str(), error.what());
    }
    return kUnusable;
}

}  // namespace

int main(int argc, char** argv) {
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
    return next == argc - 1 ? Play(argv[next], language, told) : Usage();
}
