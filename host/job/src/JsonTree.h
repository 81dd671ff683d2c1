#pragma once

#include <cstdint>
#include <iterator>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace skyframe::host {

class CJsonTree;

/// A value of a tree, which must outlive it.
class CJsonValue {
 public:
  CJsonValue(const CJsonTree& tree, std::uint32_t nNode) : m_pTree(&tree), m_nNode(nNode) {}

  [[nodiscard]] bool IsBoolean() const;
  [[nodiscard]] bool IsNumber() const;
  /// A number without point and exponent.
  [[nodiscard]] bool IsInteger() const;
  [[nodiscard]] bool IsText() const;
  [[nodiscard]] bool IsArray() const;
  [[nodiscard]] bool IsObject() const;

  // Each of its own kind of value only.
  [[nodiscard]] bool GetBoolean() const;
  [[nodiscard]] double GetNumber() const;
  /// The largest one for any that is larger.
  [[nodiscard]] std::int64_t GetInteger() const;
  [[nodiscard]] std::string_view GetText() const;

  /// Of a member.
  [[nodiscard]] std::string_view GetKey() const;
  /// The same for the same key anywhere in the tree.
  [[nodiscard]] std::uint32_t GetKeyNumber() const;
  /// JSON pointer from the root.
  [[nodiscard]] std::string GetPlace() const;

  /// Over the entries of an array or the members of an object.
  class Iterator {
   public:
    using iterator_category = std::input_iterator_tag;
    using value_type = CJsonValue;
    using difference_type = std::ptrdiff_t;
    using pointer = void;
    using reference = CJsonValue;

    Iterator() = default;
    Iterator(const CJsonTree& tree, std::uint32_t nNode) : m_pTree(&tree), m_nNode(nNode) {}
    CJsonValue operator*() const { return {*m_pTree, m_nNode}; }
    Iterator& operator++();
    Iterator operator++(int);
    bool operator==(const Iterator& other) const { return m_nNode == other.m_nNode; }

   private:
    const CJsonTree* m_pTree = nullptr;
    std::uint32_t m_nNode = 0;
  };
  [[nodiscard]] Iterator begin() const { return {*m_pTree, m_nNode + 1}; }
  [[nodiscard]] Iterator end() const;
  [[nodiscard]] std::size_t GetSize() const;

 private:
  const CJsonTree* m_pTree;
  std::uint32_t m_nNode;
};

/// Texts by number, each one once; 0 is the empty one.
class CTextPool {
 public:
  CTextPool() { Keep({}); }
  CTextPool(const CTextPool&) = delete;
  CTextPool& operator=(const CTextPool&) = delete;

  /// Its number. The text that came next the last time is tried first: the objects of a list have the same keys.
  std::uint32_t Keep(const std::string& strText);
  [[nodiscard]] std::string_view Get(std::uint32_t nText) const { return *m_entries[nText].pText; }

 private:
  struct Entry {
    const std::string* pText = nullptr;
    std::uint32_t nFollower = 0;
  };

  std::map<std::string, std::uint32_t> m_numbers;
  std::vector<Entry> m_entries;
  std::uint32_t m_nLast = 0;
};

/// The values of a JSON text in one list, in the order of the text: each one is followed by those in it.
class CJsonTree {
 public:
  enum class Kind : std::uint8_t { Null, Boolean, Signed, Unsigned, Real, Text, Array, Object };

  struct Node {
    Kind kind = Kind::Null;
    std::uint32_t nParent = 0;
    std::uint32_t nNext = 0;   ///< behind the value and all that is in it
    std::uint32_t nKey = 0;    ///< of a member: its text
    std::uint64_t nValue = 0;  ///< by kind: the bits of a number, or which text
  };

  /// Before the first value: for so many of them.
  void Reserve(std::size_t nNodes) { m_nodes.reserve(nNodes); }
  std::uint32_t KeepText(const std::string& strText) { return m_texts.Keep(strText); }
  /// Appends a value to its parent, in which all before it are complete. Its number.
  std::uint32_t Add(Node node);
  /// No more values come in it.
  void Close(std::uint32_t nNode) { m_nodes[nNode].nNext = static_cast<std::uint32_t>(m_nodes.size()); }

  [[nodiscard]] std::size_t GetCount() const { return m_nodes.size(); }
  [[nodiscard]] const Node& GetNode(std::uint32_t nNode) const { return m_nodes[nNode]; }
  [[nodiscard]] std::string_view GetText(std::uint32_t nText) const { return m_texts.Get(nText); }
  [[nodiscard]] CJsonValue GetRoot() const { return {*this, 0}; }

 private:
  std::vector<Node> m_nodes;
  CTextPool m_texts;
};

}  // namespace skyframe::host
