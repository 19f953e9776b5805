#include "settings/named_values_guard.h"

#include "Common/text.h"
#include "settings/store_values.h"

NamedValuesGuard::NamedValuesGuard() {
    StoreText text{};
    for (const StoreValue& value : StoreValues()) {
        if (value.getNumber) {
            m_numbers.push_back(value.getNumber());
        } else if (value.getText) {
            value.getText(text);
            m_texts.emplace_back(FieldText(text));
        }
    }
}

NamedValuesGuard::~NamedValuesGuard() {
    auto number = m_numbers.begin();
    auto text = m_texts.begin();
    for (const StoreValue& value : StoreValues()) {
        if (value.getNumber)
            value.setNumber(*number++);
        else if (value.getText)
            value.setText((text++)->c_str());
    }
}
