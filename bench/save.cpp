// save FILE [ROUNDS] : a grid of a million cells as comma text into a file, in turns with writing the same
// bytes as they stand. Prints the best of both and their ratio.
#include <algorithm>
#include <cstdio>
#include <string>

#include "bench/common.h"
#include "player/ScriptedOutput.h"
#include "widgets/CommaText.h"

namespace {

constexpr int kColumns = 17;
constexpr int kRows = 1'000'000 / kColumns + 1;

/// As in the summary: two names, then figures.
void Fill(dlv::OutlineGrid& grid) {
    grid.SetColumns(kColumns);
    grid.SetRows(kRows);
    for (int row = 0; row < kRows; ++row) {
        grid.SetText(row, 1, "Installation of lines, all kinds");
        grid.SetText(row, 2, "Class \"" + std::to_string(row) + "\"");
        for (int column = 3; column < kColumns; ++column) grid.SetWhole(row, column, row % 1000 * column);
    }
}

class Collected : public dlv::OutputFile {
public:
    void Write(std::string_view bytes) override { text += bytes; }
    void Keep() override {}
    std::string text;
};

}  // namespace

int main(int count, char** arguments) {
    if (count < 2) return 2;
    const std::string name = arguments[1];
    const int rounds = count > 2 ? std::stoi(arguments[2]) : 10;
    dlv::OutlineGrid grid{"grid"};
    Fill(grid);
    Collected bytes;
    WriteCommaText(grid, bytes);
    double saved = 1e9;
    double raw = 1e9;
    for (int round = 0; round < rounds; ++round) {
        Clock clock;
        {
            const auto file = dlv::player::MakeScriptedFile(name);
            WriteCommaText(grid, *file);
            file->Keep();
        }
        saved = std::min(saved, clock.lap());
        {
            const auto file = dlv::player::MakeScriptedFile(name);
            file->Write(bytes.text);
            file->Keep();
        }
        raw = std::min(raw, clock.lap());
    }
    std::remove(name.c_str());
    std::printf("%d cells, %zu bytes: saved in %.1f ms, the same bytes written in %.1f ms, ratio %.2f\n",
                kRows * kColumns, bytes.text.size(), saved * 1e3, raw * 1e3, saved / raw);
    return 0;
}
