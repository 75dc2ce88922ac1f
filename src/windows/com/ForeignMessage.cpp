#include "windows/com/ForeignMessage.h"

#include "windows/com/ForeignTable.h"

namespace dlv {

bool ForeignMessage::IsLike(IDispatch* object) {
    const LateBound asked(object);
    return asked.Has(L"Name") && asked.Has(L"Property") && asked.Has(L"Data");
}

std::string ForeignMessage::Name() const { return object_.Text(L"Name"); }

std::string ForeignMessage::Property(std::string_view key) const {
    return object_.Text(L"Property", Variant(key));
}

std::shared_ptr<const RowTable> ForeignMessage::Table(std::string_view name) const {
    LateBound table = object_.Object(L"Data", Variant(LONG{1})).Object(L"Table", Variant(name));
    return std::make_shared<ForeignTable>(std::move(table), std::string(name));
}

}  // namespace dlv
