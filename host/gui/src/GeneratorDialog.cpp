#include "skyframe/gui/GeneratorDialog.h"

#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QPushButton>
#include <QSpinBox>
#include <memory>

#include "skyframe/generate/GeneratorFields.h"
#include "skyframe/qt/Font.h"
#include "texts.h"

namespace skyframe::gui {

namespace {

constexpr int c_nDecimals = 3;

/// A line in a form for each parameter.
class CFormMaker {
 public:
  /// The form, the parameters and what is called at each change must outlive the widgets.
  CFormMaker(QFormLayout& form, std::function<void()> changed) : m_form(form), m_changed(std::move(changed)) {}

  void Visit(const host::GeneratorField& field, int& nValue, host::GeneratorRange<int> range) {
    auto pBox = std::make_unique<QSpinBox>();
    pBox->setRange(range.lowest, range.highest);
    pBox->setValue(nValue);
    Add(field, std::move(pBox), nValue);
  }
  void Visit(const host::GeneratorField& field, double& dValue, host::GeneratorRange<double> range) {
    auto pBox = std::make_unique<QDoubleSpinBox>();
    pBox->setDecimals(c_nDecimals);
    pBox->setRange(range.lowest, range.highest);
    pBox->setValue(dValue);
    Add(field, std::move(pBox), dValue);
  }
  void Visit(const host::GeneratorField& field, bool& bValue) {
    auto pBox = std::make_unique<QCheckBox>(ToQt(Say(field.meaning)));
    pBox->setObjectName(QString::fromLatin1(field.pszOption));
    pBox->setChecked(bValue);
    QObject::connect(pBox.get(), &QCheckBox::toggled, pBox.get(), [&bValue, changed = m_changed](bool bOn) {
      bValue = bOn;
      changed();
    });
    m_form.addRow(pBox.release());  // the form takes it over
  }

 private:
  template <class Box, class T>
  void Add(const host::GeneratorField& field, std::unique_ptr<Box> pBox, T& value) {
    pBox->setObjectName(QString::fromLatin1(field.pszOption));
    pBox->setToolTip(ToQt(Say(field.meaning)));
    QObject::connect(pBox.get(), &Box::valueChanged, pBox.get(), [&value, changed = m_changed](T entered) {
      value = entered;
      changed();
    });
    m_form.addRow(ToQt(Say(field.meaning)), pBox.release());  // the form takes it over
  }

  QFormLayout& m_form;
  std::function<void()> m_changed;
};

}  // namespace

CGeneratorDialog::CGeneratorDialog(QWidget* pParent)
    : QDialog(pParent), m_layout(this), m_buttons(QDialogButtonBox::Ok | QDialogButtonBox::Cancel) {
  setObjectName(QStringLiteral("generator"));
  m_conflict.setObjectName(QStringLiteral("conflict"));
  setWindowTitle(ToQt(Say(texts::c_generatorTitle)));
  m_pages.setObjectName(QStringLiteral("generators"));
  AddPage<host::BuildingParameters>(texts::c_building, "building");
  AddPage<host::TowerParameters>(texts::c_tower, "tower");
  AddPage<host::DomeParameters>(texts::c_dome, "dome");
  AddPage<host::ArchParameters>(texts::c_arch, "arch");
  m_buttons.button(QDialogButtonBox::Ok)->setText(ToQt(Say(texts::c_create)));
  m_buttons.button(QDialogButtonBox::Cancel)->setText(ToQt(Say(texts::c_cancel)));
  m_columns.addWidget(&m_pages, 2);
  m_columns.addWidget(&m_view, 3);
  m_layout.addLayout(&m_columns);
  m_layout.addWidget(&m_conflict);
  m_layout.addWidget(&m_buttons);
  connect(&m_pages, &QTabWidget::currentChanged, this, [this] { Draw(); });
  connect(&m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(&m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  resize(fontMetrics().height() * 48, fontMetrics().height() * 26);
  Draw();
}

template <class Parameters>
void CGeneratorDialog::AddPage(const host::Words& title, const char* pszName) {
  auto pPage = std::make_unique<QWidget>();
  pPage->setObjectName(QString::fromLatin1(pszName));
  auto pForm = std::make_unique<QFormLayout>();
  const auto pParameters = std::make_shared<Parameters>();
  m_generators.emplace_back([this, pParameters] {
    const std::optional<std::string> conflict = host::FindConflict(*pParameters);
    m_strConflict = conflict.value_or("");
    m_job = conflict ? host::Job() : host::Generate(*pParameters);
  });
  CFormMaker maker(*pForm, [this] { Draw(); });
  VisitFields(maker, *pParameters);
  pPage->setLayout(pForm.release());                  // the page takes it over
  m_pages.addTab(pPage.release(), ToQt(Say(title)));  // and the tabs the page
}

void CGeneratorDialog::Draw() {
  m_generators[static_cast<std::size_t>(m_pages.currentIndex())]();
  if (m_strConflict.empty()) m_view.SetScene(host::CScene(m_job));
  m_conflict.setText(ToQt(m_strConflict));
  m_buttons.button(QDialogButtonBox::Ok)->setEnabled(m_strConflict.empty());
}

}  // namespace skyframe::gui
