// The company that the demo host works for: its units in three levels, what its technicians do and for whom,
// and how the times of day are written. All of it is made up.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

namespace dlv::demo {

enum class Language { English, Portuguese, Spanish };
inline constexpr std::size_t kLanguages = 3;

/// "EN", "PO" or "SP", as the control knows them.
std::string_view LanguageCode(Language language);

struct Unit {
    std::string_view id;
    std::string_view name;
    /// The id of the unit above; "#" for a top-level unit.
    std::string_view parent;
    int technicians;
};

/// The row that names the root of the tree.
inline constexpr std::string_view kRootId = "#";
inline constexpr std::string_view kCompanyName = "Lakeland Field Service";

/// Each unit stands behind the one above it.
std::span<const Unit> Units();

struct Code {
    std::string_view code;
    std::array<std::string_view, kLanguages> description;

    std::string_view In(Language language) const { return description[static_cast<std::size_t>(language)]; }
};

/// Of a technician of a unit, both by their places; no two have the same.
std::string TechnicianName(std::size_t unit, std::size_t technician);

inline constexpr std::size_t kJobTypes = 6;
inline constexpr std::size_t kJobClasses = 8;

/// What is to be done.
struct JobType {
    Code code;
    /// How long the work takes on average, without the way there.
    int minutes;
    int points;
    /// How often it occurs with each job class, as numbers beside all others; 0 for never.
    std::array<int, kJobClasses> frequency;
};

/// For whom, or on what.
struct JobClass {
    Code code;
    int extraPoints;
};

std::span<const JobType, kJobTypes> JobTypes();
std::span<const JobClass, kJobClasses> JobClasses();

/// The format of the time of day.
std::string_view TimeFormat(Language language);

}  // namespace dlv::demo
