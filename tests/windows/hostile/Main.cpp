// The hostile caller: calls every member of the control's type library with arguments that no host should
// give. After each sequence of calls the control works as ever and nothing of it is left; after each block of
// sequences a new control works, and neither memory nor any object of the system's has grown.
//
//   hostile [--calls N] [--seed S] [--interface NAME] [--plant FAULT] [--seconds N]     a run
//   hostile --seed S --sequence K [--steps 1,5,7]               one sequence of it, or some of its steps
//
// Closes with "N passed, N failed"; a crash ends it with exit status 43, a hang with 42, either with the
// calls that were under way.
#include <cstdio>
#include <cstdlib>
#include <map>

#include "tests/windows/Resources.h"
#include "tests/windows/hostile/DialogKiller.h"
#include "tests/windows/hostile/Plan.h"
#include "tests/windows/hostile/Watch.h"

namespace dlv::hostile {
namespace {

/// What the command line gives, by name, over what holds without it.
using Options = std::map<std::string, std::string>;

unsigned long NumberOf(const Options& options, const char* name) {
    return std::strtoul(options.at(name).c_str(), nullptr, 10);
}

/// Nothing when the command line is wrong.
std::optional<Options> Read(int argc, char** argv) {
    Options options{{"--calls", "200000"}, {"--seed", "1"},    {"--interface", ""}, {"--plant", ""},
                    {"--seconds", "60"},   {"--sequence", ""}, {"--steps", ""}};
    for (int i = 1; i < argc; i += 2) {
        const auto known = options.find(argv[i]);
        if (known == options.end() || i + 1 == argc) return std::nullopt;
        known->second = argv[i + 1];
    }
    const std::string& fault = options["--plant"];
    return fault.empty() || PlantFault(fault) ? std::optional(options) : std::nullopt;
}

struct Failure {
    std::size_t sequence;
    std::string what;
};

class Run {
public:
    Run(const std::vector<Interface>& interfaces, const Plan& plan, const Options& options)
        : interfaces_(interfaces),
          plan_(plan),
          options_(options),
          only_(!options.at("--sequence").empty()),
          steps_(options.at("--steps").empty() ? "" : "," + options.at("--steps") + ",") {}

    std::optional<Failure> All() {
        // What the system makes once and keeps is made by then.
        if (!only_) Sequence(plan_.FirstRandom());
        const std::size_t first = NumberOf(options_, "--sequence");
        std::size_t next = first;
        for (std::size_t block = first; !IsDone(next, first); block = next) {
            for (BeginBlock(); next - block < kBlock && !IsDone(next, first); ++next) {
                const long before = Caller::Calls();
                if (std::string wrong = Sequence(next); !wrong.empty()) return Failure{next, wrong};
                calls_ += Caller::Calls() - before;
            }
            if (std::string wrong = NewControlFails(); !wrong.empty()) return Failure{next - 1, wrong};
            if (auto leak = LeakIn(block, next)) return leak;
        }
        std::printf("%zu texts, %zu numbers, %zu arrays, %zu objects, %zu values of any type\n",
                    Texts().size(), Numbers().size(), Arrays().size(), Objects().size(), Values().size());
        std::printf("seed %lu: %ld calls in %zu sequences, %d dialogs closed\n", NumberOf(options_, "--seed"),
                    calls_, next - first, DialogKiller::Killed());
        return std::nullopt;
    }

private:
    static constexpr std::size_t kBlock = 16;

    bool IsDone(std::size_t next, std::size_t first) const {
        return only_ ? next > first : calls_ >= static_cast<long>(NumberOf(options_, "--calls"));
    }

    /// What is wrong after the sequence; empty when all is well.
    std::string Sequence(std::size_t sequence) {
        NoteSequence(plan_.Name(sequence));
        std::string wrong = Play(sequence);
        test::PumpMessages();
        if (wrong.empty() && test::CanUnload() != S_OK) wrong = "objects of the library are left";
        if (wrong.empty() && container::liveObjects != 0)
            wrong = std::to_string(container::liveObjects) + " objects of the host are still held";
        return wrong;
    }

    std::string Play(std::size_t sequence) {
        Scene scene(interfaces_, Plan::InWindow(sequence));
        Caller caller(scene);
        scene.OnReentry([&](Random& random) { caller.CallAny(random); });
        for (std::size_t step = 0; step < plan_.Steps(sequence); ++step) {
            if (!steps_.empty() && steps_.find("," + std::to_string(step) + ",") == std::string::npos)
                continue;
            NoteStep(step);
            plan_.Do(sequence, step, scene, caller);
            if (!caller.Wrong().empty()) return caller.Wrong();
        }
        NoteStep(plan_.Steps(sequence));
        return scene.WhatFails();
    }

    std::string NewControlFails() const {
        std::string wrong = Scene(interfaces_, true).WhatFails();
        return wrong.empty() ? wrong : "a new control: " + wrong;
    }

    void BeginBlock() {
        labelBlocks_ = labels_.Blocks();
        labelBytes_ = labels_.Bytes();
        before_ = test::Resources::Now();
    }

    std::string Growth() {
        test::Resources before = before_;
        before.Forgive(labels_.Blocks() - labelBlocks_, labels_.Bytes() - labelBytes_);
        return test::Resources::Now().LeakedSince(before);
    }

    std::string GrowthOf(std::size_t first, std::size_t end) {
        BeginBlock();
        for (std::size_t i = first; i < end; ++i) Sequence(i);
        return Growth();
    }

    /// Sequences are run again to tell what grows every time from what the system makes once and keeps.
    std::optional<Failure> LeakIn(std::size_t first, std::size_t end) {
        if (Growth().empty() || GrowthOf(first, end).empty() || GrowthOf(first, end).empty())
            return std::nullopt;
        for (std::size_t i = first; i < end; ++i) {
            GrowthOf(i, i + 1);
            if (GrowthOf(i, i + 1).empty()) continue;
            if (const std::string grown = GrowthOf(i, i + 1); !grown.empty())
                return Failure{i, "left behind: " + grown};
        }
        return std::nullopt;
    }

    const std::vector<Interface>& interfaces_;
    const Plan& plan_;
    const Options& options_;
    const bool only_;
    const std::string steps_;
    const DialogKiller killer_;
    test::LabelResidue labels_;
    test::Resources before_;
    std::size_t labelBlocks_ = 0;
    std::size_t labelBytes_ = 0;
    long calls_ = 0;
};

/// The system keeps freed texts for reuse, which would pass for growth.
void KeepNoTexts() {
    const HMODULE library = GetModuleHandleW(L"oleaut32.dll");
    const FARPROC function = GetProcAddress(library, "SetOaNoCache");
    if (function != nullptr) reinterpret_cast<void (*)()>(reinterpret_cast<void*>(function))();
}

int Main(const Options& options) {
    const auto seed = static_cast<std::uint32_t>(NumberOf(options, "--seed"));
    StartWatch(static_cast<DWORD>(NumberOf(options, "--seconds")) * 1000);
    KeepNoTexts();
    const auto library = test::ControlTypeLibrary();
    const std::vector<Interface> interfaces = InterfacesOf(*library.Get());
    const Plan plan(interfaces, seed, options.at("--interface"));
    const auto failure = Run(interfaces, plan, options).All();
    if (failure) {
        std::printf("FAILED: seed %u, %s: %s\n", seed, plan.Name(failure->sequence).c_str(),
                    failure->what.c_str());
        std::printf("The shortest way there: ./dev hostile replay %u %zu\n", seed, failure->sequence);
    }
    std::printf("%d passed, %d failed\n", failure ? 0 : 1, failure ? 1 : 0);
    return failure ? 1 : 0;
}

}  // namespace
}  // namespace dlv::hostile

int main(int argc, char** argv) {
    if (const auto options = dlv::hostile::Read(argc, argv)) return dlv::hostile::Main(*options);
    std::printf(
        "hostile [--calls N] [--seed S] [--interface NAME] [--plant FAULT] [--seconds N] [--sequence K "
        "[--steps 1,5,7]]\n");
    return 2;
}
