// The kinds of bytes that a scan through a document's text or values stops at.
#pragma once

#include <array>
#include <cstdint>

namespace dlv {

struct XmlByte {
    enum Class : std::uint8_t {
        kRefused = 1,    // control characters
        kBlank = 2,      // tab and line breaks
        kMarkup = 4,     // < and &
        kDouble = 8,     // "
        kSingle = 16,    // '
        kBracket = 32,   // ]
        kBeyond = 64,    // not ASCII
        kNameByte = 128  // ASCII characters that may stand inside a name
    };

    /// 0 for a byte at which no scan stops.
    static unsigned ClassOf(char byte);

private:
    static constexpr std::array<std::uint8_t, 256> MakeClasses() {
        std::array<std::uint8_t, 256> classes{};
        for (unsigned i = 0; i < 256; ++i) {
            const bool digit = i >= '0' && i <= '9';
            const bool letter = (i >= 'A' && i <= 'Z') || (i >= 'a' && i <= 'z');
            if (i < 0x20) classes[i] = i == '\t' || i == '\n' || i == '\r' ? kBlank : kRefused;
            if (i == '<' || i == '&') classes[i] = kMarkup;
            if (i == '"') classes[i] = kDouble;
            if (i == '\'') classes[i] = kSingle;
            if (i == ']') classes[i] = kBracket;
            if (i >= 0x80) classes[i] = kBeyond;
            if (digit || letter || i == '_' || i == ':' || i == '-' || i == '.') classes[i] = kNameByte;
        }
        return classes;
    }
};

inline unsigned XmlByte::ClassOf(char byte) {
    static constexpr std::array<std::uint8_t, 256> kClasses = MakeClasses();
    return kClasses[static_cast<unsigned char>(byte)];
}

}  // namespace dlv
