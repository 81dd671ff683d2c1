#include "JsonTree.h"

#include <bit>
#include <limits>

#include "JsonText.h"

namespace skyframe::host {

using Kind = CJsonTree::Kind;

bool CJsonValue::IsBoolean() const { return m_pTree->GetNode(m_nNode).kind == Kind::Boolean; }

bool CJsonValue::IsNumber() const { return IsInteger() || m_pTree->GetNode(m_nNode).kind == Kind::Real; }

bool CJsonValue::IsInteger() const {
  const Kind kind = m_pTree->GetNode(m_nNode).kind;
  return kind == Kind::Signed || kind == Kind::Unsigned;
}

bool CJsonValue::IsText() const { return m_pTree->GetNode(m_nNode).kind == Kind::Text; }

bool CJsonValue::IsArray() const { return m_pTree->GetNode(m_nNode).kind == Kind::Array; }

bool CJsonValue::IsObject() const { return m_pTree->GetNode(m_nNode).kind == Kind::Object; }

bool CJsonValue::GetBoolean() const { return m_pTree->GetNode(m_nNode).nValue != 0; }

double CJsonValue::GetNumber() const {
  const CJsonTree::Node& node = m_pTree->GetNode(m_nNode);
  if (node.kind == Kind::Real) return std::bit_cast<double>(node.nValue);
  return node.kind == Kind::Signed ? static_cast<double>(std::bit_cast<std::int64_t>(node.nValue))
                                   : static_cast<double>(node.nValue);
}

std::int64_t CJsonValue::GetInteger() const {
  constexpr std::int64_t c_nLargest = std::numeric_limits<std::int64_t>::max();
  const CJsonTree::Node& node = m_pTree->GetNode(m_nNode);
  const bool bTooLarge = node.kind == Kind::Unsigned && node.nValue > static_cast<std::uint64_t>(c_nLargest);
  return bTooLarge ? c_nLargest : std::bit_cast<std::int64_t>(node.nValue);
}

std::string_view CJsonValue::GetText() const {
  return m_pTree->GetText(static_cast<std::uint32_t>(m_pTree->GetNode(m_nNode).nValue));
}

std::string_view CJsonValue::GetKey() const { return m_pTree->GetText(GetKeyNumber()); }

std::uint32_t CJsonValue::GetKeyNumber() const { return m_pTree->GetNode(m_nNode).nKey; }

std::string CJsonValue::GetPlace() const {
  if (m_nNode == 0) return {};
  const CJsonValue parent(*m_pTree, m_pTree->GetNode(m_nNode).nParent);
  if (parent.IsObject()) return AppendPointer(parent.GetPlace(), GetKey());
  const auto nIndex = std::distance(parent.begin(), Iterator(*m_pTree, m_nNode));
  return AppendPointer(parent.GetPlace(), static_cast<std::size_t>(nIndex));
}

CJsonValue::Iterator& CJsonValue::Iterator::operator++() {
  m_nNode = m_pTree->GetNode(m_nNode).nNext;
  return *this;
}

CJsonValue::Iterator CJsonValue::Iterator::operator++(int) {
  const Iterator before = *this;
  ++*this;
  return before;
}

CJsonValue::Iterator CJsonValue::end() const { return {*m_pTree, m_pTree->GetNode(m_nNode).nNext}; }

std::size_t CJsonValue::GetSize() const { return static_cast<std::size_t>(std::distance(begin(), end())); }

std::uint32_t CTextPool::Keep(const std::string& strText) {
  if (!m_entries.empty()) {
    const std::uint32_t nGuess = m_entries[m_nLast].nFollower;
    if (*m_entries[nGuess].pText == strText) return m_nLast = nGuess;
  }
  const auto [it, bNew] = m_numbers.try_emplace(strText, static_cast<std::uint32_t>(m_entries.size()));
  if (bNew) m_entries.push_back({&it->first});
  m_entries[m_nLast].nFollower = it->second;
  return m_nLast = it->second;
}

std::uint32_t CJsonTree::Add(Node node) {
  const auto nNode = static_cast<std::uint32_t>(m_nodes.size());
  node.nNext = nNode + 1;
  m_nodes.push_back(node);
  return nNode;
}

}  // namespace skyframe::host
