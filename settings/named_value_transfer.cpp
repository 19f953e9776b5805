#include "settings/named_value_transfer.h"

#include "Common/text.h"
#include "session/datamanager.h"
#include "settings/print_option_access.h"
#include "settings/standard_values.h"
#include "settings/store_values.h"

#include <string>

namespace {

std::int64_t GetNumber(const ddb::CPrintOptionEx& option, const ddb::FieldDescriptor& field) {
    if (field.type == ddb::FieldType::I64)
        return ddb::GetI64(option, field);
    return ddb::GetI32(option, field);
}

void SetNumber(ddb::CPrintOptionEx& option, const ddb::FieldDescriptor& field, std::int64_t number) {
    if (field.type == ddb::FieldType::I64)
        ddb::SetI64(option, field, number);
    else
        ddb::SetI32(option, field, static_cast<std::int32_t>(number));
}

} // namespace

void NamedValueToStore(const ddb::CPrintOptionEx& option, int number) {
    const StoreValue* value = FindStoreValue(number);
    if (!value)
        return;
    const ddb::FieldDescriptor& field = *ddb::FindFieldByValueNumber(number);
    if (value->IsText())
        value->setText(ddb::GetText(option, field).c_str());
    else
        value->setNumber(GetNumber(option, field));
}

void NamedValueFromStore(ddb::CPrintOptionEx& option, int number) {
    const StoreValue* value = FindStoreValue(number);
    if (!value || !value->HasGetter())
        return;
    const ddb::FieldDescriptor& field = *ddb::FindFieldByValueNumber(number);
    if (!value->IsText()) {
        SetNumber(option, field, value->getNumber());
        return;
    }
    StoreText text{};
    value->getText(text);
    ddb::SetText(option, field, FieldText(text));
}

void StandardValueToStore(int number) {
    const StoreValue* value = FindStoreValue(number);
    if (!value || !value->HasGetter())
        return;
    if (value->IsText())
        value->setText(std::string(StandardText(value->name)).c_str());
    else
        value->setNumber(StandardNumber(value->name));
    // The use of an IC card has no number of its own and goes with the credentials that it stands beside.
    if (number == ddb::FieldAt(ddb::FieldId::AuthJobUserId).number)
        ExportedFunc_SetUseIcCard(static_cast<std::uint32_t>(StandardNumber("UseIcCard")));
}

void StandardValueToRecord(ddb::CPrintOptionEx& option, int number) {
    const StoreValue* value = FindStoreValue(number);
    if (!value)
        return;
    const ddb::FieldDescriptor& field = *ddb::FindFieldByValueNumber(number);
    if (value->IsText())
        ddb::SetText(option, field, StandardText(value->name));
    else
        SetNumber(option, field, StandardNumber(value->name));
}
