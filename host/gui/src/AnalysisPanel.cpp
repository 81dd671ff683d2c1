#include "skyframe/gui/AnalysisPanel.h"

#include <QAction>
#include <memory>

#include "ShapeTitle.h"
#include "skyframe/qt/Font.h"
#include "skyframe/run/AnalysisRun.h"
#include "texts.h"

namespace skyframe::gui {

CAnalysisPanel::CAnalysisPanel(CDocument& document, std::function<void(std::size_t)> run, QWidget* pParent)
    : QListWidget(pParent), m_document(document) {
  setObjectName(QStringLiteral("analyses"));
  auto* const pRemove = new QAction(this);  // NOLINT(cppcoreguidelines-owning-memory): the panel owns it
  pRemove->setShortcut(QKeySequence::Delete);
  pRemove->setShortcutContext(Qt::WidgetShortcut);
  connect(pRemove, &QAction::triggered, this, [this] { RemoveCurrent(); });
  addAction(pRemove);
  setContextMenuPolicy(Qt::ActionsContextMenu);
  connect(this, &QListWidget::itemActivated, this,
          [this, run = std::move(run)](const QListWidgetItem* pRow) { run(static_cast<std::size_t>(row(pRow))); });
  m_document.OnLanguage([this, pRemove] {
    pRemove->setText(ToQt(Say(texts::c_removeAnalysis)));
    Fill();
  });
  m_document.analysesChanged.Connect([this] { Fill(); });
  m_document.resultsChanged.Connect([this] { Fill(); });
}

void CAnalysisPanel::Fill() {
  const int nRow = currentRow();
  clear();
  if (!m_document.IsOpen()) return;
  for (const host::JobAnalysis& analysis : m_document.GetJob().analyses) {
    std::string strText(host::GetName(analysis));
    const host::ResultStamp* const pStamp = m_document.FindStamp(analysis);
    const bool bOutdated = pStamp != nullptr && m_document.IsOutdated(*pStamp);
    if (pStamp != nullptr) strText += "   " + pStamp->strTime;
    const bool bFailed = pStamp != nullptr && HasError(pStamp->advice[static_cast<std::size_t>(host::GetLanguage())]);
    strText += FormResultMark(bFailed, bOutdated);
    auto pRow = std::make_unique<QListWidgetItem>(ToQt(strText));
    if (bOutdated || bFailed) pRow->setForeground(Qt::darkRed);
    addItem(pRow.release());  // the list takes it over
  }
  setCurrentRow(nRow < count() ? nRow : -1);
}

void CAnalysisPanel::RemoveCurrent() {
  if (currentRow() < 0) return;
  std::vector<host::JobAnalysis> analyses = m_document.GetJob().analyses;
  analyses.erase(analyses.begin() + currentRow());
  m_document.SetAnalyses(std::move(analyses));
}

}  // namespace skyframe::gui
