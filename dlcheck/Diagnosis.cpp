#include "dlcheck/Diagnosis.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "base/Text.h"
#include "dlcheck/Manifest.h"
#include "dlcheck/PeFile.h"

namespace dlv::dlcheck {

namespace {

std::string FolderOf(const std::string& path) { return path.substr(0, path.find_last_of('\\') + 1); }
std::string NameOf(const std::string& path) { return path.substr(path.find_last_of('\\') + 1); }

std::string BitsOf(Bitness bitness) { return bitness == Bitness::Bits64 ? "64-bit" : "32-bit"; }
Bitness OtherThan(Bitness bitness) { return bitness == Bitness::Bits64 ? Bitness::Bits32 : Bitness::Bits64; }
std::string ArchitectureOf(Bitness bitness) { return bitness == Bitness::Bits64 ? "amd64" : "x86"; }

/// A program by its name, or with none all programs of a kind.
struct Asker {
    std::string program;
    Bitness bitness;
    std::string Kind() const { return BitsOf(bitness) + " programs"; }
    std::string Described() const {
        return program.empty() ? Kind() : program + " (" + BitsOf(bitness) + ")";
    }
};

/// One diagnosis under way. A step answers with a sentence when it has found out why the control does not
/// load.
class Search {
public:
    Search(const Computer& computer, const Control& control) : computer_(computer), control_(control) {}

    Diagnosis ForFile(const std::string& path) const;
    Diagnosis ByRegistry(const Asker& asker) const;

private:
    using Reason = std::optional<std::string>;

    Diagnosis ForProgram(const std::string& path, const PeFile& program) const;
    Diagnosis ForLibrary(const std::string& path, Bitness bitness) const;
    Diagnosis ThroughAssembly(const Asker& asker, const std::string& folder,
                              const AssemblyIdentity& wanted) const;
    Diagnosis FromFile(const Asker& asker, const std::string& path, const std::string& how) const;
    Diagnosis NotRegistered(const Asker& asker) const;
    Diagnosis ByItsOwnDoing(const Asker& asker, const std::string& manifest,
                            const FileContent& content) const;

    std::string ManifestOf(const std::string& path, const PeFile& program) const;
    bool HasControl(const Manifest& manifest) const;
    Reason AssemblyReason(const Asker& asker, const std::string& path, const FileContent& content,
                          const AssemblyIdentity& wanted) const;
    Reason FileReason(const Asker& asker, const std::string& path, const std::string& how) const;
    Reason LoadingReason(const std::string& path, const PeFile& file, Bitness bitness) const;

    const Computer& computer_;
    const Control& control_;
};

Diagnosis Fails(std::string sentence) { return {false, std::move(sentence)}; }

std::optional<Bitness> BitnessOf(const PeFile& file, const Computer& computer) {
    if (file.followsWindows) return computer.HasBits64() ? Bitness::Bits64 : Bitness::Bits32;
    if (file.processor == Processor::X64) return Bitness::Bits64;
    if (file.processor == Processor::X86) return Bitness::Bits32;
    return std::nullopt;
}

Diagnosis Search::ForFile(const std::string& path) const {
    const FileContent content = computer_.Read(path);
    if (content.access == Access::Missing) return Fails("There is no file " + path + ".");
    if (content.access == Access::Denied) return Fails("Access to " + path + " is denied.");
    const auto file = ReadPeFile(content.bytes);
    if (!file) return Fails(path + " is damaged, or neither a Windows program nor a library.");
    const auto bitness = BitnessOf(*file, computer_);
    if (!bitness)
        return Fails(path + " is for another kind of processor; the control comes for 32- and 64-bit x86.");
    return file->isLibrary ? ForLibrary(path, *bitness) : ForProgram(path, *file);
}

Diagnosis Search::ForLibrary(const std::string& path, Bitness bitness) const {
    const Asker anyProgram{"", bitness};
    if (const Reason reason = FileReason(anyProgram, path, "")) return Fails(*reason);
    const auto registered = computer_.Find(bitness);
    const std::string loads = path + " loads in " + anyProgram.Kind();
    if (!registered) return {true, loads + ", but is not registered: they need a manifest that names it."};
    if (!EqualFolded(registered->path, path))
        return {true, loads + ", but " + registered->path + " is what is registered for them."};
    return {true, loads + " and is registered for " + (registered->forUser ? "this user." : "the machine.")};
}

Diagnosis Search::ForProgram(const std::string& path, const PeFile& program) const {
    const Asker asker{NameOf(path), *BitnessOf(program, computer_)};
    const std::string text = ManifestOf(path, program);
    if (!text.empty()) {
        const auto manifest = ReadManifest(text);
        if (!manifest)
            return Fails("The manifest of " + asker.program +
                         " is no well-formed document, so Windows does not start it.");
        for (const AssemblyIdentity& dependency : manifest->dependencies)
            if (EqualFolded(dependency.name, control_.assembly))
                return ThroughAssembly(asker, FolderOf(path), dependency);
        for (const ManifestClass& entry : manifest->classes)
            if (EqualFolded(entry.classId, control_.classId))
                return FromFile(asker, FolderOf(path) + entry.file,
                                "named in the manifest of " + asker.program);
    }
    if (!computer_.Find(asker.bitness)) {
        const std::string beside = FolderOf(path) + control_.assembly + ".manifest";
        const FileContent content = computer_.Read(beside);
        if (content.access != Access::Missing) return ByItsOwnDoing(asker, beside, content);
    }
    return ByRegistry(asker);
}

Diagnosis Search::ByItsOwnDoing(const Asker& asker, const std::string& manifest,
                                const FileContent& content) const {
    if (const Reason reason = AssemblyReason(asker, manifest, content, {})) return Fails(*reason);
    const std::string file = FolderOf(manifest) + control_.fileName;
    if (const Reason reason = FileReason(asker, file, "")) return Fails(*reason);
    return Fails("The control loads for " + asker.Described() + " only if the program activates " + manifest +
                 " itself: the program's own manifest does not name the assembly " + control_.assembly +
                 ", and the control is not registered for " + asker.Kind() + ".");
}

std::string Search::ManifestOf(const std::string& path, const PeFile& program) const {
    return program.manifest.empty() ? computer_.Read(path + ".manifest").bytes : program.manifest;
}

bool Search::HasControl(const Manifest& manifest) const {
    for (const ManifestClass& entry : manifest.classes)
        if (EqualFolded(entry.classId, control_.classId)) return true;
    return false;
}

Diagnosis Search::ThroughAssembly(const Asker& asker, const std::string& folder,
                                  const AssemblyIdentity& wanted) const {
    const std::string fileName = control_.assembly + ".manifest";
    const std::string ownFolder = folder + control_.assembly + "\\";
    for (const std::string& path : {folder + fileName, ownFolder + fileName}) {
        const FileContent content = computer_.Read(path);
        if (content.access == Access::Missing) continue;
        if (const Reason reason = AssemblyReason(asker, path, content, wanted)) return Fails(*reason);
        return FromFile(asker, FolderOf(path).append(control_.fileName),
                        std::string("through ").append(path));
    }
    return Fails("The manifest of " + asker.program + " names the assembly " + control_.assembly + ", but " +
                 fileName + " is not in " + folder + ".");
}

Search::Reason Search::AssemblyReason(const Asker& asker, const std::string& path, const FileContent& content,
                                      const AssemblyIdentity& wanted) const {
    if (content.access == Access::Denied) return "Access to " + path + " is denied.";
    const auto manifest = ReadManifest(content.bytes);
    if (!manifest) return path + " is no well-formed document.";
    const AssemblyIdentity& found = manifest->identity;
    if (found.architecture != ArchitectureOf(asker.bitness))
        return path + " is for architecture " + found.architecture + ", but " + asker.Described() +
               " needs " + ArchitectureOf(asker.bitness) + ".";
    if (!wanted.version.empty() && found.version != wanted.version)
        return "The manifest of " + asker.program + " names version " + wanted.version + " of " +
               control_.assembly + ", but " + path + " is of version " + found.version + ".";
    if (!HasControl(*manifest)) return path + " does not name the control.";
    return std::nullopt;
}

Diagnosis Search::ByRegistry(const Asker& asker) const {
    const auto registered = computer_.Find(asker.bitness);
    if (!registered) return NotRegistered(asker);
    return FromFile(asker, registered->path,
                    registered->forUser ? "registered for this user" : "registered for the machine");
}

Diagnosis Search::NotRegistered(const Asker& asker) const {
    const Bitness other = OtherThan(asker.bitness);
    if (computer_.Find(other))
        return Fails("The control is registered for " + BitsOf(other) + " programs only, so " +
                     asker.Described() + " cannot find it: register the " + BitsOf(asker.bitness) + " " +
                     control_.fileName + " too.");
    const std::string unregistered = "The control is not registered for " + asker.Kind();
    return Fails(asker.program.empty()
                     ? unregistered + "."
                     : unregistered + ", and no manifest of " + asker.program + " names it.");
}

Diagnosis Search::FromFile(const Asker& asker, const std::string& path, const std::string& how) const {
    if (const Reason reason = FileReason(asker, path, ", " + how + ",")) return Fails(*reason);
    return {true, "The control loads for " + asker.Described() + " from " + path + ", " + how + "."};
}

Search::Reason Search::FileReason(const Asker& asker, const std::string& path, const std::string& how) const {
    const FileContent content = computer_.Read(path);
    if (content.access == Access::Missing) return path + how + " does not exist.";
    if (content.access == Access::Denied) return "Access to " + path + how + " is denied.";
    const auto file = ReadPeFile(content.bytes);
    if (!file || !file->isLibrary) return path + how + " is damaged, or no library.";
    const auto bitness = BitnessOf(*file, computer_);
    if (bitness != asker.bitness)
        return path + how + " is " + (bitness ? BitsOf(*bitness) : "for another kind of processor") +
               ", so " + asker.Described() + " cannot load it.";
    return LoadingReason(path, *file, asker.bitness);
}

Search::Reason Search::LoadingReason(const std::string& path, const PeFile& file, Bitness bitness) const {
    const std::string folder = FolderOf(path);
    const auto missing = std::ranges::find_if(
        file.imports, [&](const std::string& name) { return !computer_.HasLibrary(name, folder, bitness); });
    if (missing != file.imports.end())
        return path + " needs " + *missing + ", which is not on this computer.";
    if (const auto problem = computer_.LoadingProblem(path, bitness))
        return "Windows does not load " + path + ": " + *problem;
    return std::nullopt;
}

}  // namespace

Diagnosis CheckFile(const Computer& computer, const Control& control, const std::string& path) {
    return Search(computer, control).ForFile(path);
}

Diagnosis CheckRegistration(const Computer& computer, const Control& control, Bitness bitness) {
    return Search(computer, control).ByRegistry({"", bitness});
}

}  // namespace dlv::dlcheck
