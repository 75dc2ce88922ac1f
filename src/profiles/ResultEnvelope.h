// The host's result: a document in a text, or an object, with an error table somewhere inside. Finds
// the table, keeps the error that it tells of, and shows it to the user.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <variant>

#include "base/RunTimeError.h"
#include "ui/Outside.h"
#include "webdata/QZWebData.h"
#include "webdata/QZWebProfiles.h"

namespace dlv {

/// What kind of document a text is, told by the first marker that it holds.
enum class ResultForm { Profiles, Profile, Data, Table };
ResultForm FormOf(const std::string& text);

class ResultEnvelope {
public:
    using Result = std::variant<std::string, std::shared_ptr<QZWebTable>, std::shared_ptr<QZWebData>,
                                std::shared_ptr<QZWebProfiles>, std::shared_ptr<QZWebProfile>>;
    using Report = std::function<void(const RunTimeError& error, std::string_view location)>;

    ResultEnvelope(Outside& outside, Report report) : outside_(outside), report_(std::move(report)) {}

    /// Whether the result holds an error table. What the table tells of is kept as the last error
    /// and reported under `location`; a result that cannot be read is passed over in silence.
    bool ParseResult(const Result& result, const std::string& location);

    std::int32_t LastErrorNumber() const { return lastErrorNumber_; }
    const std::string& LastErrorDescription() const { return lastErrorDescription_; }
    void ClearLastError();

private:
    Outside& outside_;
    Report report_;
    std::int32_t lastErrorNumber_ = 0;
    std::string lastErrorDescription_;
};

}  // namespace dlv
