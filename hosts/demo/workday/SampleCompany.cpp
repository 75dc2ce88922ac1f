#include "hosts/demo/workday/SampleCompany.h"

namespace dlv::demo {

namespace {

constexpr Unit kUnits[] = {
    {"10", "North Shore", "#", 3},        {"110", "Harbor District", "10", 4},
    {"111", "Ferry Landing", "110", 9},   {"112", "Harbor Point", "110", 12},
    {"113", "Lighthouse", "110", 7},      {"120", "Pinewood District", "10", 3},
    {"121", "Pinewood East", "120", 8},   {"122", "Sawmill Creek", "120", 6},
    {"20", "Lake Country", "#", 3},       {"210", "Lakeview District", "20", 4},
    {"211", "Lakeview", "210", 11},       {"212", "Mill Pond", "210", 8},
    {"220", "Granite District", "20", 3}, {"221", "Granite Hills", "220", 7},
    {"222", "Quarry Road", "220", 5},     {"30", "Prairie", "#", 2},
    {"310", "Meadow District", "30", 3},  {"311", "Clover Field", "310", 6},
    {"312", "Meadowbrook", "310", 9},     {"320", "Elm Grove District", "30", 3},
    {"321", "Elm Grove", "320", 8},       {"322", "Wheatland", "320", 5},
    {"40", "River Valley", "#", 3},       {"410", "Riverside District", "40", 4},
    {"411", "Cedar Bend", "410", 8},      {"412", "Old Mill", "410", 6},
    {"413", "Riverside", "410", 11},      {"420", "Bridgeton District", "40", 3},
    {"421", "Bridgeton", "420", 10},      {"422", "Oak Landing", "420", 7},
};

constexpr JobType kTypeRows[kJobTypes] = {
    {{"IN", {"Installation", "Instalação", "Instalación"}}, 75, 6, {30, 9, 4, 22, 0, 12, 6, 0}},
    {{"RP", {"Repair", "Reparo", "Reparación"}}, 55, 4, {26, 12, 6, 10, 18, 9, 5, 3}},
    {{"MT", {"Maintenance", "Manutenção", "Mantenimiento"}}, 45, 3, {0, 5, 7, 8, 9, 0, 6, 8}},
    {{"IS", {"Inspection", "Inspeção", "Inspección"}}, 30, 2, {0, 0, 4, 6, 0, 0, 5, 7}},
    {{"UP", {"Upgrade", "Ampliação", "Ampliación"}}, 60, 5, {12, 6, 3, 11, 0, 5, 0, 0}},
    {{"DC", {"Disconnection", "Desligamento", "Desconexión"}}, 25, 1, {14, 4, 0, 0, 10, 6, 0, 0}},
};

constexpr JobClass kClassRows[kJobClasses] = {
    {{"RES", {"Residential", "Residencial", "Residencial"}}, 0},
    {{"BUS", {"Business", "Empresas", "Empresas"}}, 1},
    {{"ENT", {"Enterprise", "Corporativo", "Corporativo"}}, 3},
    {{"FIB", {"Fiber", "Fibra", "Fibra"}}, 2},
    {{"COP", {"Copper Line", "Linha de Cobre", "Línea de Cobre"}}, 0},
    {{"TV", {"Television", "Televisão", "Televisión"}}, 1},
    {{"WLS", {"Wireless", "Sem Fio", "Inalámbrico"}}, 1},
    {{"PUB", {"Public Works", "Obras Públicas", "Obras Públicas"}}, 2},
};

// Their numbers have no common divisor: only after the product of both does a name come again.
constexpr std::string_view kFirstNames[] = {
    "Amara", "Bruno",  "Carla", "Dmitri", "Elena",  "Farid",  "Grace", "Hugo",
    "Ines",  "João",   "Keiko", "Liam",   "Marta",  "Nathan", "Olga",  "Pedro",
    "Quinn", "Renata", "Samir", "Tess",   "Ulises", "Vera",   "Wendy", "Yusuf",
};
constexpr std::string_view kLastNames[] = {
    "Abbott",  "Barros",    "Castillo", "Dawson",    "Eriksen",   "Ferreira", "Garnier",  "Hollis",
    "Ibarra",  "Jansen",    "Keller",   "Lindqvist", "Moreau",    "Núñez",    "Okafor",   "Pereira",
    "Quigley", "Rossi",     "Sandoval", "Tanaka",    "Underhill", "Vargas",   "Whitaker", "Xavier",
    "Yamada",  "Zielinski", "Braga",    "Conway",    "Duarte",    "Esposito", "Fontaine",
};

}  // namespace

std::string_view LanguageCode(Language language) {
    switch (language) {
        case Language::Portuguese: return "PO";
        case Language::Spanish: return "SP";
        case Language::English: break;
    }
    return "EN";
}

std::span<const Unit> Units() { return kUnits; }
std::span<const JobType, kJobTypes> JobTypes() { return kTypeRows; }
std::span<const JobClass, kJobClasses> JobClasses() { return kClassRows; }

std::string TechnicianName(std::size_t unit, std::size_t technician) {
    std::size_t place = technician;
    for (std::size_t before = 0; before < unit; ++before)
        place += static_cast<std::size_t>(kUnits[before].technicians);
    // Neighbours differ in both.
    const std::string first(kFirstNames[place % std::size(kFirstNames)]);
    return first + " " + std::string(kLastNames[place * 7 % std::size(kLastNames)]);
}

std::string_view TimeFormat(Language language) {
    return language == Language::English ? "h:nn:ss AM/PM" : "hh:nn:ss";
}

}  // namespace dlv::demo
