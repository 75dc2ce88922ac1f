#include "dlcheck/Manifest.h"

#include "base/Trap.h"
#include "webdata/XmlReader.h"

namespace dlv::dlcheck {

namespace {

/// Manifests spell their elements with any prefix or none.
std::string_view WithoutPrefix(std::string_view name) { return name.substr(name.find(':') + 1); }

void TakeElement(const XmlReader& reader, bool inDependency, Manifest& manifest, std::string& file) {
    const std::string_view name = WithoutPrefix(reader.Name());
    if (name == "assemblyIdentity") {
        AssemblyIdentity identity{reader.Value("name"), reader.Value("version"),
                                  reader.Value("processorArchitecture")};
        if (inDependency) {
            manifest.dependencies.push_back(std::move(identity));
        } else {
            manifest.identity = std::move(identity);
        }
    }
    if (name == "file") file = reader.Value("name");
    if (name == "comClass") manifest.classes.push_back({file, reader.Value("clsid")});
}

Manifest ReadWhole(std::string_view text) {
    XmlReader reader(text);
    Manifest manifest;
    std::string file;
    int dependencies = 0;
    for (;;) {
        switch (reader.Next()) {
            case XmlReader::Event::StartElement:
                dependencies += WithoutPrefix(reader.Name()) == "dependency";
                TakeElement(reader, dependencies > 0, manifest, file);
                break;
            case XmlReader::Event::EndElement:
                dependencies -= WithoutPrefix(reader.Name()) == "dependency";
                break;
            case XmlReader::Event::Text: break;
            case XmlReader::Event::EndOfDocument: return manifest;
        }
    }
}

}  // namespace

std::optional<Manifest> ReadManifest(std::string_view text) {
    std::optional<Manifest> manifest;
    IgnoreErrors([&] { manifest = ReadWhole(text); });
    return manifest;
}

}  // namespace dlv::dlcheck
