#include "profiles/ResultEnvelope.h"

#include "base/Number.h"
#include "base/Trap.h"

namespace dlv {

namespace {

using TablePointer = std::shared_ptr<const QZWebTable>;

TablePointer OnlyErrorTable(const TablePointer& table) {
    return table && table->Name() == "Error" ? table : nullptr;
}

TablePointer ErrorTableOf(const QZWebData& data) { return data.Table("Error"); }

TablePointer ErrorTableOf(const std::string& text) {
    switch (FormOf(text)) {
        case ResultForm::Profiles: {
            QZWebProfiles profiles;
            profiles.LoadText(text);
            return profiles.ErrorTable();
        }
        case ResultForm::Profile: {
            QZWebProfile profile;
            profile.LoadText(text);
            return profile.ErrorTable();
        }
        case ResultForm::Data: {
            QZWebData data;
            data.LoadText(text);
            return ErrorTableOf(data);
        }
        case ResultForm::Table: {
            auto table = std::make_shared<QZWebTable>();
            table->LoadText(text);
            return OnlyErrorTable(table);
        }
    }
    return nullptr;
}

struct ErrorTableFinder {
    TablePointer operator()(const std::string& text) const { return ErrorTableOf(text); }
    TablePointer operator()(const std::shared_ptr<QZWebTable>& table) const { return OnlyErrorTable(table); }
    TablePointer operator()(const std::shared_ptr<QZWebData>& data) const { return ErrorTableOf(*data); }
    TablePointer operator()(const std::shared_ptr<QZWebProfiles>& set) const { return set->ErrorTable(); }
    TablePointer operator()(const std::shared_ptr<QZWebProfile>& profile) const {
        return profile->ErrorTable();
    }
};

}  // namespace

ResultForm FormOf(const std::string& text) {
    if (text.find("<WebProfiles>") != std::string::npos) return ResultForm::Profiles;
    if (text.find("<WebProfile>") != std::string::npos) return ResultForm::Profile;
    if (text.find("<WebData>") != std::string::npos) return ResultForm::Data;
    return ResultForm::Table;
}

void ResultEnvelope::ClearLastError() {
    lastErrorNumber_ = 0;
    lastErrorDescription_.clear();
}

bool ResultEnvelope::ParseResult(const Result& result, const std::string& location) {
    ClearLastError();
    TablePointer table;
    IgnoreErrors([&] {
        table = std::visit(ErrorTableFinder{}, result);
        if (!table) return;
        const std::int32_t number = ToLong(table->Field(1, "ErrorNumber"));
        if (number == 0) return;
        lastErrorNumber_ = number;
        lastErrorDescription_ = table->Field(1, "ErrorDescription");
        report_(RunTimeError(lastErrorNumber_, lastErrorDescription_), location);
    });
    outside_.ProcessPendingMessages();
    return table != nullptr;
}

}  // namespace dlv
