#pragma once

#include "configuration/CSetting.h"
#include "configuration/SharedKeys.h"

#include <functional>
#include <memory>

namespace portico {

/// The settings of a collection in little memory, as large as a pointer. Nearly all settings have the name of their key
/// and no object that shows them; what is otherwise stands apart.
///
/// There is none until `Create`; all else wants one.
class SettingTable {
public:
  /// Told of a change that comes through an object that shows a setting.
  using Listener = std::function<void()>;

  SettingTable() = default;
  ~SettingTable() { Free(); }
  SettingTable(const SettingTable&) = delete;
  SettingTable& operator=(const SettingTable&) = delete;

  /// Makes an empty one. Objects that showed settings of the one before go their own way.
  void Create();
  bool Exists() const { return m_block != nullptr; }

  std::size_t Count() const { return m_block->Keys.Count(); }
  /// The count for an absent key; case is ignored.
  template <class Text>
  std::size_t Find(const Text& key) const {
    return m_block->Keys.Find(key);
  }
  const PackedText& Key(std::size_t at) const { return m_block->Keys[at]; }
  const PackedText& Value(std::size_t at) const { return m_block->Values()[at]; }
  const PackedText& Washed(std::size_t at) const {
    return m_block->Keys.KeepWashed() ? m_block->Values()[RoomFor(Count()) + at] : Value(at);
  }
  const PackedText& Name(std::size_t at) const;
  /// Null if nobody holds one.
  CSetting* Object(std::size_t at) const;
  /// Some setting bears another name than its key, case aside.
  bool HasRenamed() const;

  /// The key is not there yet. The value is the washed one.
  void Add(const PackedText& key, PackedText value);
  /// The same for a setting that the object shows from the first. If it fails nothing is added.
  void Add(const PackedText& key, PackedText value, CSetting& object, const Listener& listener);
  void Remove(std::size_t at);
  // Of a setting without an object.
  void SetValue(std::size_t at, PackedText value);
  void Wash(std::size_t at) { Wash(at, Value(at)); }
  /// From now on the object shows the setting.
  void Show(std::size_t at, CSetting& object, const Listener& listener);

  /// The object that shows the whole table; null if nobody holds one.
  std::shared_ptr<void> View() const;
  void SetView(const std::shared_ptr<void>& view, const Listener& listener);
  /// Nobody holds it any more.
  void ForgetView() noexcept { DropEmpty(); }

private:
  struct Deviations;

  /// What the values stand behind, with room for an even number of them; behind it as much room for the washed ones, if
  /// they are kept.
  struct Block {
    PackedText* Values() { return reinterpret_cast<PackedText*>(this + 1); }
    SharedKeys Keys;
  };
  struct FreeMemory {
    void operator()(Block* block) const { ::operator delete(block); }
  };
  using BlockPointer = std::unique_ptr<Block, FreeMemory>;

  static std::size_t RoomFor(std::size_t count) { return count < 2 ? 2 : (count + 1) / 2 * 2; }
  /// With empty texts, and without keys.
  static BlockPointer NewBlock(std::size_t texts);
  static void Destroy(Block& block, std::size_t texts) noexcept;
  std::size_t Texts() const { return RoomFor(Count()) * (m_block->Keys.KeepWashed() ? 2 : 1); }
  void Free() noexcept;
  Deviations* Apart() const;
  Deviations& MakeApart(const Listener& listener);
  void DropEmpty() noexcept;
  void LetKeepWashed();
  void Wash(std::size_t at, PackedText washed);

  Block* m_block = nullptr;
};

} // namespace portico
