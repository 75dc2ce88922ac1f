#include "base/RunTimeError.h"

namespace dlv {

void RaiseInvalidCall() { throw RunTimeError(kErrorInvalidCall, "Invalid procedure call or argument"); }
void RaiseOverflow() { throw RunTimeError(kErrorOverflow, "Overflow"); }
void RaiseSubscript() { throw RunTimeError(kErrorSubscript, "Subscript out of range"); }
void RaiseTypeMismatch() { throw RunTimeError(kErrorTypeMismatch, "Type mismatch"); }

void RaiseDevice() { throw RunTimeError(kErrorDevice, "Device I/O error"); }
void RaisePrinter() { throw RunTimeError(kErrorPrinter, "Printer error"); }

void RaiseDuplicateKey() {
    throw RunTimeError(kErrorDuplicateKey,
                       "This key is already associated with an element of this collection");
}

void RaiseTableMissing(std::string_view table) {
    throw RunTimeError(kErrorTableMissing, "Table " + std::string(table) + " is missing");
}

void RaiseColumnMissing(std::string_view column, std::string_view table) {
    throw RunTimeError(kErrorColumnMissing,
                       "Column " + std::string(column) + " is missing in table " + std::string(table));
}

void RaiseDocument(std::size_t line, std::size_t column, std::string_view what) {
    throw RunTimeError(kErrorDocument, "Document error at line " + std::to_string(line) + ", column " +
                                           std::to_string(column) + ": " + std::string(what));
}

void RaiseCallOrder(std::string_view method, std::string_view why) {
    throw RunTimeError(kErrorCallOrder,
                       "Call " + std::string(method) + " is not possible now: " + std::string(why));
}

}  // namespace dlv
