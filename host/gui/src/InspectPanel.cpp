#include "skyframe/gui/InspectPanel.h"

#include <QHeaderView>
#include <algorithm>
#include <iterator>
#include <memory>

#include "PartData.h"
#include "skyframe/job/NumberSet.h"
#include "skyframe/job/Text.h"
#include "skyframe/qt/Font.h"
#include "texts.h"

namespace skyframe::gui {

namespace {

enum What : int { c_nNodes, c_nElements, c_nSection };
constexpr std::size_t c_nMostShown = 20;  // parts whose data are listed

Selection FindNodes(const host::Job& job, const host::CNumberSet& numbers) {
  Selection selection;
  for (std::size_t i = 0; i < job.nodes.size(); ++i) {
    if (numbers.Has(job.nodes[i].nId)) selection.nodes.insert(static_cast<int>(i));
  }
  return selection;
}

Selection FindElements(const host::Job& job, const host::CNumberSet& numbers) {
  Selection selection;
  for (int i = 0; i < static_cast<int>(job.elements.size()); ++i) {
    if (numbers.Has(i + 1)) selection.elements.insert(i);
  }
  return selection;
}

/// Of a section whose name contains the text.
Selection FindSection(const host::Job& job, const std::string& strText) {
  Selection selection;
  for (int i = 0; i < static_cast<int>(job.elements.size()); ++i) {
    const host::JobElement& element = job.elements[static_cast<std::size_t>(i)];
    const std::string& strName = job.sections[static_cast<std::size_t>(element.nSection)].strId;
    if (ToQt(strName).contains(ToQt(strText), Qt::CaseInsensitive)) selection.elements.insert(i);
  }
  return selection;
}

}  // namespace

QString DescribePart(const CDocument& document, host::ScenePart part) {
  const host::Job& job = document.GetJob();
  if (part.kind == host::ScenePart::Kind::Node) {
    const host::JobNode& node = job.nodes[static_cast<std::size_t>(part.nIndex)];
    return ToQt(Say(texts::c_nodeOf, {std::to_string(node.nId)}) +
                host::Format("\n(%.6g, %.6g, %.6g) m", node.dX, node.dY, node.dZ));
  }
  const host::JobElement& element = job.elements[static_cast<std::size_t>(part.nIndex)];
  return ToQt(Say(texts::c_elementOf, {std::to_string(part.nIndex + 1)}) + "\n" +
              job.sections[static_cast<std::size_t>(element.nSection)].strId);
}

CInspectPanel::CInspectPanel(CDocument& document, CStructureView& view, QWidget* pParent)
    : QWidget(pParent), m_document(document), m_view(view), m_layout(this) {
  MakeWidgets();
  m_document.OnLanguage([this] {
    const int nWhat = std::max(m_what.currentIndex(), 0);
    m_what.clear();
    m_what.addItems({ToQt(Say(texts::c_node)), ToQt(Say(texts::c_element)), ToQt(Say(texts::c_section))});
    m_what.setCurrentIndex(nWhat);
    m_what.setToolTip(ToQt(Say(texts::c_findWhatTip)));
    m_text.setPlaceholderText(ToQt(Say(texts::c_findHint)));
    m_text.setToolTip(ToQt(Say(texts::c_findTip)));
    m_alone.setText(ToQt(Say(texts::c_alone)));
    m_alone.setToolTip(ToQt(Say(texts::c_aloneTip)));
    m_data.setHeaderLabels({ToQt(Say(texts::c_property)), ToQt(Say(texts::c_value))});
    Fill();
  });
  m_document.selectionChanged.Connect([this] { Fill(); });
  m_document.resultsChanged.Connect([this] { Fill(); });
  m_document.jobOpened.Connect([this] { m_alone.setChecked(false); });
}

void CInspectPanel::MakeWidgets() {
  setObjectName(QStringLiteral("inspect"));
  m_what.setObjectName(QStringLiteral("find_what"));
  m_text.setObjectName(QStringLiteral("find_text"));
  m_alone.setObjectName(QStringLiteral("alone"));
  m_data.setObjectName(QStringLiteral("part_data"));
  m_data.setRootIsDecorated(false);
  m_data.setAlternatingRowColors(true);
  m_text.setClearButtonEnabled(true);
  for (QWidget* const pWidget : std::initializer_list<QWidget*>{&m_what, &m_text, &m_alone, &m_data}) {
    m_layout.addWidget(pWidget);
  }
  connect(&m_text, &QLineEdit::returnPressed, this, [this] { Find(); });
  connect(&m_alone, &QCheckBox::toggled, this, [this] { ShowAlone(); });
}

void CInspectPanel::Find() {
  if (!m_document.IsOpen()) return;
  const std::string strText = m_text.text().trimmed().toStdString();
  const host::Job& job = m_document.GetJob();
  if (m_what.currentIndex() == c_nSection) return m_document.Select(FindSection(job, strText));
  const host::CNumberSet numbers(strText);
  m_document.Select(m_what.currentIndex() == c_nNodes ? FindNodes(job, numbers) : FindElements(job, numbers));
}

void CInspectPanel::ShowAlone() {
  if (!m_alone.isChecked()) return m_view.SetShown({});
  const Selection& selection = m_document.GetSelection();
  if (selection.IsEmpty()) return m_alone.setChecked(false);
  const auto& elements = m_document.GetJob().elements;
  std::vector<bool> members(elements.size());
  for (std::size_t k = 0; k < members.size(); ++k) {
    // nodes that are selected alone show the members between them
    const bool bBetween = selection.elements.empty() && selection.nodes.contains(elements[k].nNodeI - 1) &&
                          selection.nodes.contains(elements[k].nNodeJ - 1);
    members[k] = bBetween || selection.elements.contains(static_cast<int>(k));
  }
  m_view.SetShown(host::CShownParts(m_view.GetScene(), std::move(members), selection.nodes));
}

void CInspectPanel::Fill() {
  m_data.clear();
  const Selection& selection = m_document.GetSelection();
  m_alone.setEnabled(m_alone.isChecked() || !selection.IsEmpty());
  if (!m_document.IsOpen() || selection.IsEmpty()) return;
  std::vector<PartData> groups;
  const auto take = [&groups](std::vector<PartData> more) { std::ranges::move(more, std::back_inserter(groups)); };
  if (selection.nodes.size() + selection.elements.size() > c_nMostShown) {
    groups.push_back(
        {Say(texts::c_selected, {std::to_string(selection.nodes.size()), std::to_string(selection.elements.size())}),
         {}});
  } else {
    for (const int i : selection.nodes) take(DescribeNode(m_document, i));
    for (const int i : selection.elements) take(DescribeElement(m_document, i));
  }
  for (const PartData& group : groups) {
    auto pGroup = std::make_unique<QTreeWidgetItem>(QStringList{ToQt(group.strTitle)});
    for (const auto& line : group.lines) {
      pGroup->addChild(std::make_unique<QTreeWidgetItem>(QStringList{ToQt(line.first), ToQt(line.second)}).release());
    }
    QTreeWidgetItem* const pRow = pGroup.release();  // the tree takes it over
    m_data.addTopLevelItem(pRow);
    pRow->setFirstColumnSpanned(true);
    pRow->setExpanded(true);
  }
  m_data.resizeColumnToContents(0);
}

}  // namespace skyframe::gui
