#include "settings/Ddb_PrintOption.h"

#include "settings/ansi_code_page.h"

#include <cstring>

namespace ddb {
namespace {

constexpr std::uint32_t kBaseImageSize = kRecordSize;
constexpr std::uint32_t kImageSize = kJobInfoSize + kRecordSize;
constexpr unsigned kJapaneseCodePage = 932;

void RequireBuffer(const void* buffer, std::uint32_t size, std::uint32_t imageSize) {
    if (!buffer || size < imageSize)
        throw DdbErrShortBuffer;
}

void RequireBuffer(const void* buffer, const std::uint32_t* size, std::uint32_t imageSize) {
    RequireBuffer(buffer, size ? *size : 0, imageSize);
}

} // namespace

CPrintOptionBase::CPrintOptionBase()
    : m_Record(kStartRecord), m_IsJapanese(AnsiCodePage() == kJapaneseCodePage) {}

void CPrintOptionBase::Save(void* buffer, std::uint32_t* size) const {
    RequireBuffer(buffer, size, kBaseImageSize);
    std::memcpy(buffer, m_Record.data(), m_Record.size());
    *size = kBaseImageSize;
}

void CPrintOptionBase::Load(const void* buffer, std::uint32_t size) {
    RequireBuffer(buffer, size, kBaseImageSize);
    std::memcpy(m_Record.data(), buffer, m_Record.size());
}

std::uint32_t CPrintOptionBase::GetSize() const {
    return kBaseImageSize;
}

bool CPrintOptionBase::Query() const {
    return false;
}

std::span<std::uint8_t> CPrintOptionBase::Bytes(Block block) {
    return block == Block::Record ? std::span(m_Record) : std::span<std::uint8_t>();
}

std::span<const std::uint8_t> CPrintOptionBase::Bytes(Block block) const {
    return block == Block::Record ? std::span(m_Record) : std::span<const std::uint8_t>();
}

CPrintOption::CPrintOption() : m_JobInfo(kStartJobInfo) {}

void CPrintOption::Save(void* buffer, std::uint32_t* size) const {
    RequireBuffer(buffer, size, kImageSize);
    auto* const image = static_cast<std::uint8_t*>(buffer);
    std::memcpy(image, m_JobInfo.data(), m_JobInfo.size());
    std::memcpy(image + m_JobInfo.size(), m_Record.data(), m_Record.size());
    *size = kImageSize;
}

void CPrintOption::Load(const void* buffer, std::uint32_t size) {
    RequireBuffer(buffer, size, kImageSize);
    const auto* const image = static_cast<const std::uint8_t*>(buffer);
    std::memcpy(m_JobInfo.data(), image, m_JobInfo.size());
    std::memcpy(m_Record.data(), image + m_JobInfo.size(), m_Record.size());
}

std::uint32_t CPrintOption::GetSize() const {
    return kImageSize;
}

std::span<std::uint8_t> CPrintOption::Bytes(Block block) {
    return block == Block::JobInfo ? std::span(m_JobInfo) : CPrintOptionBase::Bytes(block);
}

std::span<const std::uint8_t> CPrintOption::Bytes(Block block) const {
    return block == Block::JobInfo ? std::span(m_JobInfo) : CPrintOptionBase::Bytes(block);
}

CPrintOptionEx::CPrintOptionEx() : m_Ex(kStartEx) {}

void CPrintOptionEx::CopyFrom(const CPrintOptionEx& other) {
    CopyBlocksFrom(other);
    m_IsJapanese = other.m_IsJapanese;
}

void CPrintOptionEx::CopyBlocksFrom(const CPrintOptionEx& other) {
    m_Record = other.m_Record;
    m_JobInfo = other.m_JobInfo;
    m_Ex = other.m_Ex;
}

void CPrintOptionEx::Clear() {
    m_Record.fill(0);
    m_IsJapanese = false;
    m_JobInfo.fill(0);
    m_Ex.fill(0);
}

std::span<std::uint8_t> CPrintOptionEx::Bytes(Block block) {
    return block == Block::Ex ? std::span(m_Ex) : CPrintOption::Bytes(block);
}

std::span<const std::uint8_t> CPrintOptionEx::Bytes(Block block) const {
    return block == Block::Ex ? std::span(m_Ex) : CPrintOption::Bytes(block);
}

} // namespace ddb
