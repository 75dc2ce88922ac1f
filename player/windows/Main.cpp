// play-windows SESSION.json TRANSCRIPT.json [SESSION.json TRANSCRIPT.json ...] : plays recorded sessions on
// the built control in a window, and writes of each what was to be seen. Exit status 2 when one cannot be
// played, with the reason on standard error.
#include <ole2.h>

#include <cstdio>
#include <fstream>
#include <iterator>

#include "player/windows/WindowsPlayer.h"

namespace {

using namespace dlv::player;

void Play(const char* session, const char* transcript) {
    std::ifstream file(session, std::ios::binary);
    if (!file) throw SessionError("it cannot be read");
    const std::string document{std::istreambuf_iterator<char>(file), {}};
    std::ofstream(transcript, std::ios::binary) << PlayOnScreen(ReadSteps(document));
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3 || argc % 2 == 0) {
        std::fputs("usage: play-windows SESSION.json TRANSCRIPT.json ...\n", stderr);
        return 2;
    }
    int status = 0;
    OleInitialize(nullptr);
    for (int i = 1; i < argc; i += 2) {
        try {
            Play(argv[i], argv[i + 1]);
        } catch (const std::exception& error) {
            std::fprintf(stderr, "play-windows: %s: %s\n", argv[i], error.what());
            status = 2;
        }
    }
    OleUninitialize();
    return status;
}
