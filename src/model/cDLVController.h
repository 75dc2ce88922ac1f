// The data controller: the one object between the host's data messages and the views. It builds the
// look-ups and the model from a message's tables, keeps the settings that came along, writes the
// refresh times, answers which units are chosen and what lies below a unit, and tells the control
// through four events what to show.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "base/Dictionary.h"
#include "base/TimeFormat.h"
#include "base/Trap.h"
#include "model/BusinessUnits.h"
#include "model/UnitFigures.h"
#include "model/UnitTree.h"
#include "ui/CaptionCatalogue.h"
#include "webdata/MessageSource.h"
#include "widgets/ListView.h"
#include "widgets/Platform.h"

namespace dlv {

class cDLVController {
public:
    struct Events {
        std::function<void(CaptionKey key, bool error)> ShowStatus;
        std::function<void()> HideStatus;
        std::function<void(std::shared_ptr<const BusinessUnits>)> FillSingleBUGrid;
        std::function<void(std::shared_ptr<const BusinessUnits>)> FillBUHierarchyGrid;
        /// A load did not reach its end: the views must be usable again.
        std::function<void()> LoadFailed;
    };

    /// What the last loaded message said of refreshing, each part once it was read.
    struct Refresh {
        std::optional<std::string> format;
        std::optional<double> interval;  // minutes
        std::optional<TimeOfDay> last;
        std::optional<TimeOfDay> next;
    };

    cDLVController(Platform& platform, const Trap& trap, Events events);

    /// `surface` is the form on which the controller finds the labels that it writes and the list
    /// of units, by name.
    void Initialize(Form& surface);

    /// Lets the model and all look-ups go.
    void Release();

    /// Takes a host's value: loads a data message, shows that the server has stopped, and passes
    /// over everything else. `dataType` and `tag` are not looked at.
    void ReceiveMessage(const HostObject& data, std::int32_t dataType, const std::string& tag);

    /// Has the summary filled again from the present model.
    void FillSingleBU();

    /// The ids of the selected items of the unit list, in list order.
    Dictionary GetBUList() const;
    /// Every selected unit together with all its descendants, each id once.
    Dictionary GetAggregateBUList() const;
    /// The unit and all its descendants, each id once.
    Dictionary GetBUIDList(const std::string& id) const;
    /// All descendants, each followed by ",".
    std::string GetChildBUIDList(const std::string& id) const;

    /// The figures of each of the units: sums over what `GetBUIDList` names for it.
    std::vector<UnitFigures> SumUnits(const BusinessUnits& model, const Dictionary& ids) const;

    std::string LanguageID;
    std::string JeopardyThreshold;
    bool SingleBUGridBusy = false;
    bool HierarchyGridBusy = false;

    const std::shared_ptr<const BusinessUnits> BUs() const { return units_; }
    const Dictionary& BUDescriptions() const { return descriptions_; }
    const Dictionary& ParentBUIDs() const { return parents_; }
    /// The description of a code; the code itself where that is missing or empty.
    std::string JobTypeDescription(const std::string& code) const;
    std::string JobClassDescription(const std::string& code) const;
    const Refresh& LastRefresh() const { return refresh_; }

private:
    void LoadData(const MessageSource& message);
    void LoadRegionalFormats(const RowTable& table);
    void LoadLookups(const RowTable& units, const RowTable& types, const RowTable& classes);
    Outcome LoadBUData(const RowTable& general, const RowTable& details);
    void UpdateRefreshTimes(const MessageSource& message);
    const UnitTree& Tree() const;
    template <class ControlType>
    ControlType& Find(std::string_view name) const;

    Platform& platform_;
    const Trap& trap_;
    Events events_;
    Form* surface_ = nullptr;
    std::shared_ptr<BusinessUnits> units_;
    Dictionary descriptions_;
    Dictionary parents_;
    Dictionary typeDescriptions_;
    Dictionary classDescriptions_;
    Dictionary timeFormats_;
    Refresh refresh_;
    mutable std::optional<UnitTree> tree_;  // of parents_; made when asked for
};

}  // namespace dlv
