// One job's whole set of print settings: the record that the current setting, the default setting and every
// favourite hold. Its fields are told by print_option_fields.h, read and written by print_option_access.h.
#pragma once

#include "settings/print_option_start.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace ddb {

// Thrown by value.
enum DdbErrT : int {
    DdbErrShortBuffer = 6, // a buffer that is null or shorter than the image
};

// Saving and loading as an image. The order of the operations is the order of their slots, so none is added
// before them, not even a destructor.
class CPersistent {
  public:
    // Copies the image into `buffer` of *size bytes and sets *size to the image's.
    virtual void Save(void* buffer, std::uint32_t* size) const = 0;
    // Takes the image that `buffer` of `size` bytes begins with; any content is taken.
    virtual void Load(const void* buffer, std::uint32_t size) = 0;
    // The image's bytes.
    virtual std::uint32_t GetSize() const = 0;
    virtual bool Query() const = 0;

  protected:
    CPersistent() = default;
    CPersistent(const CPersistent&) = default;
    CPersistent& operator=(const CPersistent&) = default;
    ~CPersistent() = default;
};

class CPrintOptionBase : public CPersistent {
  public:
    CPrintOptionBase();

    // The image is the record. Both throw DdbErrShortBuffer with nothing copied or changed.
    void Save(void* buffer, std::uint32_t* size) const override;
    void Load(const void* buffer, std::uint32_t size) override;
    std::uint32_t GetSize() const override;
    bool Query() const override;

    // Whether the process's ANSI code page was 932 when the set was made. In no image.
    bool IsJapanese() const { return m_IsJapanese; }

    // The bytes of one of the class's own blocks, none for a block that only a class below has.
    std::span<std::uint8_t> Bytes(Block block);
    std::span<const std::uint8_t> Bytes(Block block) const;

  protected:
    RecordBlock m_Record;
    bool m_IsJapanese;
};

class CPrintOption : public CPrintOptionBase {
  public:
    CPrintOption();

    // The image is the job information and behind it the record: the reverse of the members' order.
    void Save(void* buffer, std::uint32_t* size) const override;
    void Load(const void* buffer, std::uint32_t size) override;
    std::uint32_t GetSize() const override;

    std::span<std::uint8_t> Bytes(Block block);
    std::span<const std::uint8_t> Bytes(Block block) const;

  protected:
    JobInfoBlock m_JobInfo;
};

// Has the image of its base: the third block is in none.
class CPrintOptionEx : public CPrintOption {
  public:
    CPrintOptionEx();

    // The two copies of a whole set: with the mark of IsJapanese, and of the three blocks alone.
    void CopyFrom(const CPrintOptionEx& other);
    void CopyBlocksFrom(const CPrintOptionEx& other);

    // Every field 0, every text empty, nothing unset, IsJapanese false: how the set in a setting object
    // begins.
    void Clear();

    std::span<std::uint8_t> Bytes(Block block);
    std::span<const std::uint8_t> Bytes(Block block) const;

  private:
    ExBlock m_Ex;
};

} // namespace ddb
