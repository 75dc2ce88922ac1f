// The names that documents are made of, and the steps that reading any of them begins and ends with.
#pragma once

#include <initializer_list>
#include <list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "webdata/XmlReader.h"

namespace dlv {

inline constexpr std::string_view kMessageElement = "WebMessage";
inline constexpr std::string_view kPropertyElement = "Property";
inline constexpr std::string_view kDataElement = "WebData";
inline constexpr std::string_view kTableElement = "WebTable";
inline constexpr std::string_view kRowElement = "row";
inline constexpr std::string_view kProfilesElement = "WebProfiles";
inline constexpr std::string_view kProfileElement = "WebProfile";
inline constexpr std::string_view kNameElement = "Name";
inline constexpr std::string_view kSectionElement = "Section";

inline constexpr std::string_view kNameAttribute = "Name";
inline constexpr std::string_view kValueAttribute = "Value";
inline constexpr std::string_view kFieldsAttribute = "Fields";

inline constexpr std::string_view kErrorTable = "Error";

/// Goes to the root element; error 1003 when it has another name.
void StartDocument(XmlReader& reader, std::string_view root);

/// Behind the root: nothing but comments may follow.
void EndDocument(XmlReader& reader);

/// Goes on to the next child element of the element that is open, over text. False at that
/// element's end.
bool NextChild(XmlReader& reader);

/// Attributes and elements of a document that mean nothing to us but are written back.
using KeptAttributes = std::vector<std::pair<std::string, std::string>>;
using KeptElements = std::list<std::string>;

/// The attributes of the element just started that are not among `known`.
KeptAttributes KeepAttributes(const XmlReader& reader, std::initializer_list<std::string_view> known);

/// The element just started as it stands in the reader's text, up to its end, where the reader goes.
std::string KeepElement(XmlReader& reader, std::string_view text);

}  // namespace dlv
