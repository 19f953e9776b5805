// A data setting key in memory that a test can disturb, and a store that has given its name away.
#pragma once

#include "datamanager/store.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <map>
#include <memory>
#include <new>
#include <span>
#include <string>
#include <utility>

struct KeyContent {
    std::map<std::pair<Section, std::string>, std::pair<std::uint32_t, std::string>> values;
    int writes = 0;
    int reads = 0; // of all sections
    int watches = 0;
    int questions = 0; // of the system, by getters and setters
    int postponed = 0;
    std::uint32_t changes = 0; // of any section
    bool handedOver = false;
    bool isDue = true; // false as it is within 100 microseconds of the last question
    bool gone = false;
    KeyResult watching = KeyResult::Done;
    KeyResult reading = KeyResult::Done;
    KeyResult writing = KeyResult::Done;
    bool isOutOfMemory = false;
    std::function<void()> duringReading; // between the values, once each reading of a section
    std::function<std::string(std::string_view)> image = [](std::string_view text) {
        return std::string(text);
    };

    void PutNumber(Section section, const std::string& name, std::uint32_t value) {
        values[{section, name}] = {4, std::string(reinterpret_cast<const char*>(&value), sizeof value)};
    }
    void PutText(const std::string& name, const std::string& bytes) {
        values[{Section::Values, name}] = {1, bytes};
    }
    std::uint32_t Number(Section section, const std::string& name) const {
        const auto& [type, bytes] = values.at({section, name});
        std::uint32_t value = 0;
        EXPECT_EQ(type, 4u);
        EXPECT_EQ(bytes.size(), sizeof value);
        std::memcpy(&value, bytes.data(), std::min(bytes.size(), sizeof value));
        return value;
    }
};

class KeyInMemory : public SettingKey {
  public:
    explicit KeyInMemory(KeyContent& content) : m_content(content) {}

    const std::string& Name() const override { return m_name; }
    bool IsDue() override { return m_content.isDue; }
    void Postpone() override { ++m_content.postponed; }
    KeyResult Watch() override {
        ++m_content.watches;
        return m_content.gone ? KeyResult::Gone : m_content.watching;
    }
    bool IsSignalled() override {
        ++m_content.questions;
        return std::exchange(m_content.handedOver, false);
    }
    KeyResult GetMark(Section, SectionMark& mark) override {
        mark = {0, m_content.changes};
        return m_content.gone ? KeyResult::Gone : KeyResult::Done;
    }
    // By index, as a registry is read: a value that is removed meanwhile shifts those behind it.
    KeyResult Read(Section section, const Visitor& visitor) override {
        if (m_content.isOutOfMemory)
            throw std::bad_alloc();
        if (section == Section::Current)
            ++m_content.reads;
        for (std::size_t index = 0;; ++index) {
            const auto value = std::ranges::find_if(m_content.values, [&, left = index](auto& each) mutable {
                return each.first.first == section && left-- == 0;
            });
            if (value == m_content.values.end())
                break;
            visitor(value->first.second, value->second.first, std::as_bytes(std::span(value->second.second)));
            if (index == 0 && m_content.duringReading)
                m_content.duringReading();
        }
        return m_content.gone ? KeyResult::Gone : m_content.reading;
    }
    KeyResult Write(Section section, const char* name, KeyValueType type,
                    std::span<const std::byte> data) override {
        ++m_content.writes;
        if (m_content.gone)
            return KeyResult::Gone;
        if (m_content.writing == KeyResult::Done)
            m_content.values[{section, name}] = {static_cast<std::uint32_t>(type),
                                                 {reinterpret_cast<const char*>(data.data()), data.size()}};
        return m_content.writing;
    }
    std::string ImageOf(std::string_view text) const override { return m_content.image(text); }

  private:
    KeyContent& m_content;
    std::string m_name = "a key";
};

class HandOver : public testing::Test {
  protected:
    HandOver() {
        store.Attach(std::make_unique<KeyInMemory>(key));
        store.HandOutKeyName();
    }

    KeyContent key;
    ValueStore store;
};
