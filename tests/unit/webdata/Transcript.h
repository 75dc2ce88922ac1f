// What a document holds, as one line of text, so that tests can compare documents by eye.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "webdata/QZWebTable.h"

namespace dlv::test {

/// The events of a document: "(name attribute=[value] text )".
std::string EventsOf(std::string_view document);

/// The rows of a table: "{column=[value] ...}" for each, in the order in which columns are listed.
std::string RowsOf(const QZWebTable& table);

/// The number and text of the run-time error that an action raises; empty when it raises none.
std::string ErrorOf(const std::function<void()>& action);

}  // namespace dlv::test
