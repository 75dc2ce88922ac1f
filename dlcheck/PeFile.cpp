#include "dlcheck/PeFile.h"

#include <array>
#include <cstdint>

namespace dlv::dlcheck {

namespace {

// Offsets and sizes of the format.
constexpr std::size_t kHeaderPlace = 0x3C, kSectionHeader = 40, kImportEntry = 20;
constexpr std::uint32_t kWideOptionalHeader = 0x20B, kNarrowOptionalHeader = 0x10B;
constexpr std::uint32_t kLibraryFlag = 0x2000;
constexpr std::uint32_t kImports = 1, kResources = 2, kManaged = 14;
constexpr std::uint32_t kManifestResource = 24;
constexpr std::uint32_t kSubfolder = 0x80000000;
constexpr std::uint32_t kManagedCodeOnly = 1, kNeeds32Bits = 2;
constexpr std::size_t kMostEntries = 10000;
constexpr int kResourceLevels = 3;

struct Section {
    std::uint32_t address, size, place;
};

/// Thrown nowhere: a read outside the file gives 0 and is remembered.
class Image {
public:
    explicit Image(std::string_view bytes) : bytes_(bytes) {}

    std::uint32_t Number(std::size_t place, std::size_t size = 4) {
        if (place > bytes_.size() || bytes_.size() - place < size) {
            good_ = false;
            return 0;
        }
        std::uint32_t number = 0;
        for (std::size_t i = size; i-- > 0;)
            number = number << 8 | static_cast<unsigned char>(bytes_[place + i]);
        return number;
    }
    std::string_view Piece(std::size_t place, std::size_t size) {
        if (place > bytes_.size() || bytes_.size() - place < size) {
            good_ = false;
            return {};
        }
        return bytes_.substr(place, size);
    }
    std::string TextAt(std::uint32_t address) {
        const std::size_t place = PlaceOf(address);
        const std::size_t end = bytes_.find('\0', place);
        if (end == std::string_view::npos) good_ = false;
        return good_ ? std::string(bytes_.substr(place, end - place)) : std::string();
    }

    void AddSection(const Section& section) { sections_.push_back(section); }
    /// Where in the file that lies which is at this address in memory.
    std::size_t PlaceOf(std::uint32_t address) {
        for (const Section& section : sections_)
            if (address >= section.address && address - section.address < section.size)
                return std::size_t{section.place} + (address - section.address);
        good_ = false;
        return 0;
    }

    bool Good() const { return good_; }

private:
    std::string_view bytes_;
    std::vector<Section> sections_;
    bool good_ = true;
};

struct Headers {
    std::size_t optional = 0;
    std::size_t directories = 0;
    std::uint32_t directoryCount = 0;
};

/// The address of one of the tables that the header lists; 0 when there is none.
std::uint32_t Directory(Image& image, const Headers& headers, std::uint32_t index) {
    return index < headers.directoryCount ? image.Number(headers.directories + 8 * std::size_t{index}) : 0;
}

Headers ReadHeaders(Image& image, PeFile& file) {
    const std::size_t start = image.Number(kHeaderPlace);
    const bool isPe = image.Piece(0, 2) == "MZ" && image.Piece(start, 4) == std::string_view("PE\0\0", 4);
    if (!isPe) image.Number(SIZE_MAX);
    const std::uint32_t machine = image.Number(start + 4, 2);
    file.processor = machine == 0x14C    ? Processor::X86
                     : machine == 0x8664 ? Processor::X64
                                         : Processor::Other;
    file.isLibrary = (image.Number(start + 22, 2) & kLibraryFlag) != 0;

    Headers headers{start + 24};
    const std::uint32_t kind = image.Number(headers.optional, 2);
    if (kind != kWideOptionalHeader && kind != kNarrowOptionalHeader) image.Number(SIZE_MAX);
    headers.directories = headers.optional + (kind == kWideOptionalHeader ? 112 : 96);
    headers.directoryCount = image.Number(headers.directories - 4);

    const std::size_t count = image.Number(start + 6, 2);
    const std::size_t table = headers.optional + image.Number(start + 20, 2);
    for (std::size_t i = 0; i < count && image.Good(); ++i) {
        const std::size_t entry = table + i * kSectionHeader;
        const std::uint32_t size = image.Number(entry + 16), place = image.Number(entry + 20);
        // A file that was cut off lacks the end of a section.
        image.Piece(place, size);
        image.AddSection({image.Number(entry + 12), size, place});
    }
    return headers;
}

void ReadImports(Image& image, std::uint32_t address, PeFile& file) {
    if (address == 0) return;
    std::size_t entry = image.PlaceOf(address);
    while (image.Good() && file.imports.size() < kMostEntries) {
        const std::uint32_t name = image.Number(entry + 12);
        if (name == 0) return;
        file.imports.push_back(image.TextAt(name));
        entry += kImportEntry;
    }
}

/// Kind, name and language are the levels of the resources; of the two lower ones the first entry is taken.
void ReadManifest(Image& image, std::uint32_t address, PeFile& file) {
    if (address == 0) return;
    const std::size_t root = image.PlaceOf(address);
    std::size_t folder = root;
    for (int level = 0; level < kResourceLevels && image.Good(); ++level) {
        const std::size_t count = image.Number(folder + 12, 2) + image.Number(folder + 14, 2);
        std::size_t entry = folder + 16;
        if (level == 0) {
            std::size_t passed = 0;
            while (passed < count && image.Good() && image.Number(entry) != kManifestResource)
                ++passed, entry += 8;
            if (passed == count) return;
        }
        const std::uint32_t next = image.Number(entry + 4);
        if (((next & kSubfolder) != 0) != (level + 1 < kResourceLevels)) return;
        folder = root + (next & ~kSubfolder);
    }
    const std::size_t place = image.PlaceOf(image.Number(folder));
    file.manifest = image.Piece(place, image.Number(folder + 4));
}

bool FollowsWindows(Image& image, std::uint32_t address) {
    if (address == 0) return false;
    const std::uint32_t flags = image.Number(image.PlaceOf(address) + 16);
    return (flags & kManagedCodeOnly) != 0 && (flags & kNeeds32Bits) == 0;
}

}  // namespace

std::optional<PeFile> ReadPeFile(std::string_view bytes) {
    Image image(bytes);
    PeFile file;
    const Headers headers = ReadHeaders(image, file);
    if (!image.Good()) return std::nullopt;
    ReadImports(image, Directory(image, headers, kImports), file);
    ReadManifest(image, Directory(image, headers, kResources), file);
    file.followsWindows =
        file.processor == Processor::X86 && FollowsWindows(image, Directory(image, headers, kManaged));
    return image.Good() ? std::optional(file) : std::nullopt;
}

}  // namespace dlv::dlcheck
