// What a side-by-side manifest says that matters for finding a control: who it describes, which assemblies it
// depends on, and which classes its own files have.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dlv::dlcheck {

struct AssemblyIdentity {
    std::string name;
    std::string version;
    std::string architecture;
};

struct ManifestClass {
    std::string file;
    std::string classId;
};

struct Manifest {
    AssemblyIdentity identity;
    std::vector<AssemblyIdentity> dependencies;
    std::vector<ManifestClass> classes;
};

/// Nothing when the text is no well-formed document.
std::optional<Manifest> ReadManifest(std::string_view text);

}  // namespace dlv::dlcheck
