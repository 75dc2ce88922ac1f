// Simple lower-casing: one code point for one code point, for every letter of Unicode.
#pragma once

namespace dlv {

char32_t LowerCase(char32_t letter);

}  // namespace dlv
