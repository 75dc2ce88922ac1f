#include "player/ScriptedOutput.h"

#include <filesystem>
#include <fstream>
#include <system_error>

#include "base/RunTimeError.h"

namespace dlv::player {

namespace {

constexpr double kLongEdge = 16838;
constexpr double kShortEdge = 11906;

std::filesystem::path PathOf(const std::string& name) { return std::u8string(name.begin(), name.end()); }

class ScriptedFile : public OutputFile {
public:
    explicit ScriptedFile(const std::string& name)
        : target_(PathOf(name)), beside_(PathOf(name + ".new")), stream_(beside_, std::ios::binary) {
        if (!stream_) RaiseDevice();
    }
    ~ScriptedFile() override {
        stream_.close();
        std::error_code ignored;
        if (!kept_) std::filesystem::remove(beside_, ignored);
    }
    void Write(std::string_view bytes) override {
        if (!stream_.write(bytes.data(), static_cast<std::streamsize>(bytes.size()))) RaiseDevice();
    }
    void Keep() override {
        stream_.close();
        std::error_code error;
        if (stream_) std::filesystem::rename(beside_, target_, error);
        if (!stream_ || error) RaiseDevice();
        kept_ = true;
    }

private:
    std::filesystem::path target_;
    std::filesystem::path beside_;
    std::ofstream stream_;
    bool kept_ = false;
};

class ScriptedPrinter : public Printer {
public:
    explicit ScriptedPrinter(const std::string& name) : file_(name) {}
    dlv::Paper Paper() const override { return {.width = kLongEdge, .height = kShortEdge}; }
    bool Wants(int) const override { return true; }
    void Begin(const std::string&) override {}
    void Print(const PrintedPage& page) override {
        if (printed_) file_.Write("\f");
        printed_ = true;
        file_.Write(PageText(page));
    }
    void End() override { file_.Keep(); }

private:
    ScriptedFile file_;
    bool printed_ = false;
};

}  // namespace

std::unique_ptr<OutputFile> MakeScriptedFile(const std::string& name) {
    return std::make_unique<ScriptedFile>(name);
}

std::unique_ptr<Printer> MakeScriptedPrinter(const std::string& fileName) {
    return std::make_unique<ScriptedPrinter>(fileName);
}

}  // namespace dlv::player
