#include "tests/unit/dlcheck/PeImage.h"

namespace dlv::test {

namespace {

constexpr std::size_t kHeaders = 0x80, kOptional = kHeaders + 24, kSectionPlace = 0x400;
constexpr std::uint32_t kSectionAddress = 0x1000;

void Put(std::string& bytes, std::size_t place, std::uint32_t number, std::size_t size = 4) {
    if (bytes.size() < place + size) bytes.resize(place + size);
    for (std::size_t i = 0; i < size; ++i) bytes[place + i] = static_cast<char>(number >> (8 * i));
}

/// The one section: what is added gets an address.
struct Section {
    std::string bytes;
    std::uint32_t Add(std::string_view more) {
        const auto address = static_cast<std::uint32_t>(kSectionAddress + bytes.size());
        bytes += more;
        return address;
    }
};

std::uint32_t AddImports(Section& section, const std::vector<std::string>& names) {
    std::string table;
    for (const std::string& name : names) {
        const std::uint32_t address = section.Add(name + '\0');
        Put(table, table.size() + 12, address);
        Put(table, table.size(), 1);
    }
    return section.Add(table + std::string(20, '\0'));
}

/// Two kinds of resources, of which the second is the manifest.
std::uint32_t AddManifest(Section& section, const std::string& manifest) {
    const std::uint32_t text = section.Add(manifest);
    std::string root(16 + 2 * 8, '\0');
    Put(root, 14, 2, 2);
    Put(root, 16, 16);  // version information, never followed
    Put(root, 20, 0x80000000u);
    Put(root, 24, 24);
    Put(root, 28, 0x80000000u | 32);
    for (const std::uint32_t next : {0x80000000u | 56, 80u}) {
        std::string folder(24, '\0');
        Put(folder, 14, 1, 2);
        Put(folder, 16, 1);
        Put(folder, 20, next);
        root += folder;
    }
    Put(root, 80, text);
    Put(root, 84, static_cast<std::uint32_t>(manifest.size()));
    return section.Add(root);
}

}  // namespace

std::string PeImage::Bytes() const {
    const bool wide = machine != kX86;
    const std::size_t directories = kOptional + (wide ? 112 : 96);
    Section section;
    std::string bytes(kSectionPlace, '\0');
    bytes.replace(0, 2, "MZ");
    Put(bytes, 0x3C, kHeaders);
    bytes.replace(kHeaders, 2, "PE");
    Put(bytes, kHeaders + 4, machine, 2);
    Put(bytes, kHeaders + 6, 1, 2);
    Put(bytes, kHeaders + 20, static_cast<std::uint32_t>(directories + 128 - kOptional), 2);
    Put(bytes, kHeaders + 22, isLibrary ? 0x2002 : 0x0002, 2);
    Put(bytes, kOptional, wide ? 0x20B : 0x10B, 2);
    Put(bytes, directories - 4, 16);
    if (!imports.empty()) Put(bytes, directories + 8, AddImports(section, imports));
    if (!manifest.empty()) Put(bytes, directories + 16, AddManifest(section, manifest));
    if (managedFlags != 0) {
        std::string header(72, '\0');
        Put(header, 16, managedFlags);
        Put(bytes, directories + 14 * 8, section.Add(header));
    }
    section.Add("the end");
    const auto size = static_cast<std::uint32_t>(section.bytes.size());
    for (const auto& [place, number] : {std::pair{8u, size}, {12u, kSectionAddress}, {16u, size}})
        Put(bytes, directories + 128 + place, number);
    Put(bytes, directories + 128 + 20, kSectionPlace);
    return bytes + section.bytes;
}

}  // namespace dlv::test
