// Ways through the window: generator, save as, dropped files, keys, one language throughout, the manual.

#include <QTest>
#include <algorithm>

#include "CommandFolder.h"
#include "QtPerson.h"
#include "WindowTest.h"
#include "skyframe/generate/GeneratorFields.h"
#include "skyframe/gui/GeneratorDialog.h"
#include "skyframe/gui/HelpWindow.h"

namespace skyframe::gui {
namespace {

using Ways = WindowTest;

/// Types a number into a field as a person does.
void Type(QWidget& field, const QString& strText) {
  QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClicks(&field, strText);
  QTest::keyClick(&field, Qt::Key_Tab);
}

TEST_F(Ways, GeneratorsMakeWhatTheCommandLineMakes) {
  const struct {
    const char* pszPage;
    test::Strings options;  // name and value
  } cases[] = {{"building",
                {"bays-x", "2", "bays-y", "1", "storeys", "3", "span", "7.25", "height", "4.1", "dead", "6.5", "live",
                 "-1", "wind", "0"}},
               {"building", {}},
               {"tower", {"panels", "4", "base", "5.5", "top", "2", "panel-height", "2.125"}},
               {"dome", {"rings", "3", "segments", "7", "span", "31", "rise", "5.5", "load", "2.4"}},
               {"dome", {"beams", "", "rings", "2"}},
               {"arch", {"segments", "8", "half-span", "11.5", "rise", "3", "load", "-75"}}};
  const host::CLanguageScope english(host::Language::English);
  for (const auto& c : cases) {
    CGeneratorDialog dialog;
    dialog.show();
    auto* const pPage = dialog.findChild<QWidget*>(QString::fromLatin1(c.pszPage));
    Find<QTabWidget>(dialog, "generators")->setCurrentWidget(pPage);
    test::Strings arguments = {"generate", c.pszPage};
    for (std::size_t k = 0; k < c.options.size(); k += 2) {
      auto* const pField = pPage->findChild<QWidget*>(QString::fromStdString(c.options[k]));
      arguments.push_back("--" + c.options[k]);
      if (auto* const pCheck = qobject_cast<QCheckBox*>(pField)) {
        pCheck->click();
        continue;
      }
      arguments.push_back(c.options[k + 1]);
      Type(*pField, QString::fromStdString(c.options[k + 1]));
    }
    const test::CommandOutcome outcome = test::CCommandFolder::Call(arguments);
    ASSERT_EQ(outcome.nStatus, 0) << outcome.strErr;
    EXPECT_TRUE(host::FormatJob(dialog.GetJob()) == outcome.strOut) << c.pszPage << " differs";
  }
}

TEST_F(Ways, GeneratorFieldsKeepTheirLimitsAndSayWhatDoesNotGoTogether) {
  const host::CLanguageScope english(host::Language::English);
  CGeneratorDialog dialog;
  dialog.show();
  const auto field = [&dialog](const char* pszPage, const char* pszName) {
    return dialog.findChild<QWidget*>(QString::fromLatin1(pszPage))->findChild<QWidget*>(QString::fromLatin1(pszName));
  };
  const struct {
    const char *pszPage, *pszField, *pszTyped;
    double dLow, dHigh;
  } cases[] = {{"building", "storeys", "0", 1, 10}, {"building", "storeys", "-3", 1, 10},
               {"building", "span", "0", 0.001, 6}, {"building", "span", "1e9", 0.001, 1e5},
               {"building", "bays-x", "x", 1, 10},  {"dome", "segments", "2", 3, 12}};
  for (const auto& c : cases) {
    Find<QTabWidget>(dialog, "generators")
        ->setCurrentWidget(dialog.findChild<QWidget*>(QString::fromLatin1(c.pszPage)));
    QWidget* const pField = field(c.pszPage, c.pszField);
    Type(*pField, QString::fromLatin1(c.pszTyped));
    const auto* const pCount = qobject_cast<QSpinBox*>(pField);
    const double dValue = pCount != nullptr ? pCount->value() : qobject_cast<QDoubleSpinBox*>(pField)->value();
    EXPECT_GE(dValue, c.dLow) << c.pszField;
    EXPECT_LE(dValue, c.dHigh) << c.pszField << " " << c.pszTyped;
    EXPECT_FALSE(dialog.GetJob().nodes.empty());
  }
  QPushButton* const pCreate = dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
  const auto& conflict = *Find<QLabel>(dialog, "conflict");
  Find<QTabWidget>(dialog, "generators")->setCurrentWidget(dialog.findChild<QWidget*>(QStringLiteral("dome")));
  Type(*field("dome", "rise"), QStringLiteral("25"));
  EXPECT_TRUE(conflict.text().contains(QStringLiteral("rise")) && !pCreate->isEnabled());
  EXPECT_TRUE(dialog.GetJob().nodes.empty());
  Type(*field("dome", "rise"), QStringLiteral("20"));
  EXPECT_TRUE(conflict.text().isEmpty() && pCreate->isEnabled() && !dialog.GetJob().nodes.empty());
}

/// Presses the button of a file dialog with the name typed into it.
void TakeFile(QFileDialog& dialog, const QString& strFile) {
  dialog.findChild<QLineEdit*>()->setText(strFile);
  QMetaObject::invokeMethod(&dialog, "accept");
}

TEST_F(Ways, NewAndSaveAsWriteTheFilesThatTheyName) {
  CMainWindow window(Settings());
  window.show();
  CDocument& document = window.GetDocument();
  int nDialog = 0;
  Answer<QDialog>([&window] { Trigger(window, "new"); },
                  [&](QDialog& dialog) {
                    ++nDialog;
                    if (auto* const pFile = qobject_cast<QFileDialog*>(&dialog)) return TakeFile(*pFile, Path("made"));
                    dialog.findChild<QSpinBox*>(QStringLiteral("storeys"))->setValue(2);
                    dialog.accept();
                  });
  EXPECT_EQ(nDialog, 2);
  ASSERT_EQ(document.GetFile(), Path("made.json")) << "with the suffix";
  host::BuildingParameters parameters;
  parameters.nStoreys = 2;
  EXPECT_TRUE(host::FormatJob(document.GetJob()) == host::FormatJob(host::GenerateBuilding(parameters)));
  EXPECT_FALSE(document.IsModified());

  document.SetAnalyses({host::ModalJob{}});
  EXPECT_TRUE(window.isWindowModified());
  Answer<QFileDialog>([&window] { Trigger(window, "save_as"); },
                      [&](QFileDialog& dialog) { TakeFile(dialog, Path("copy.json")); });
  EXPECT_EQ(document.GetFile(), Path("copy.json"));
  EXPECT_FALSE(window.isWindowModified());
  EXPECT_EQ(host::ReadJobFile(Path("copy.json").toStdString()).job.analyses.size(), 1U);
  EXPECT_EQ(host::ReadJobFile(Path("made.json").toStdString()).job.analyses.size(), 3U) << "as it was made";
  document.SetAnalyses({});
  Trigger(window, "save");
  EXPECT_TRUE(host::ReadJobFile(Path("copy.json").toStdString()).job.analyses.empty());
  // A cancelled dialog changes nothing, and neither does a folder that is not there.
  document.SetAnalyses({host::ModalJob{}});
  Answer<QFileDialog>([&window] { Trigger(window, "save_as"); }, [](QFileDialog& dialog) { dialog.reject(); });
  EXPECT_EQ(document.GetFile(), Path("copy.json"));
  EXPECT_TRUE(document.IsModified());

  // Leaving a changed job: what is answered is what is done.
  for (const auto& [pszAnswer, bGone, nAnalyses] :
       {std::tuple("取消", false, 3U), {"不保存", true, 3U}, {"保存", true, 1U}}) {
    SCOPED_TRACE(pszAnswer);
    WriteFile(Path("copy.json"), host::FormatJob(host::GenerateBuilding(parameters)));
    document.Forget();
    ASSERT_TRUE(window.OpenJob(Path("copy.json")));
    document.SetAnalyses({host::ModalJob{}});
    Answer<QMessageBox>([&, bOpened = bGone] { EXPECT_EQ(window.OpenJob(Path("made.json")), bOpened); },
                        [&, strAnswer = QString::fromUtf8(pszAnswer)](QMessageBox& box) {
                          for (QAbstractButton* const pButton : box.buttons()) {
                            if (pButton->text() == strAnswer) return pButton->click();
                          }
                        });
    EXPECT_EQ(document.GetFile() == Path("made.json"), bGone);
    EXPECT_EQ(host::ReadJobFile(Path("copy.json").toStdString()).job.analyses.size(), nAnalyses);
  }
  document.Forget();
}

TEST_F(Ways, DroppedJobsAreOpened) {
  CMainWindow window(Settings());
  window.show();
  const QString strFile = WriteJob("dropped 梁.json", MakeCantilever());
  const struct {
    const char* pszWhat;
    QList<QUrl> urls;
    bool bTaken;
  } cases[] = {{"no file", {}, false},
               {"a page", {QUrl(QStringLiteral("http://example.org/job.json"))}, false},
               {"a job", {QUrl::fromLocalFile(strFile)}, true}};
  for (const auto& c : cases) {
    QMimeData data;
    data.setUrls(c.urls);
    QDragEnterEvent enter({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, {});
    enter.ignore();
    QApplication::sendEvent(&window, &enter);
    EXPECT_EQ(enter.isAccepted(), c.bTaken) << c.pszWhat;
    if (!c.bTaken) continue;
    QDropEvent drop(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&window, &drop);
    EXPECT_TRUE(QTest::qWaitFor([&] { return window.GetDocument().GetFile() == strFile; }));
  }
}

TEST_F(Ways, FunctionKeysOpenTheDialogsOfTheirAnalyses) {
  CMainWindow window(Settings());
  test::CQtPerson person(&window);
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
  ASSERT_TRUE(window.OpenJob(WriteJob("keys.json", MakeShakenFrame())));
  const auto press = [&window](Qt::Key key) {
    QApplication::setActiveWindow(&window);
    QTest::keyClick(QApplication::focusWidget() != nullptr ? QApplication::focusWidget() : &window, key);
  };
  for (const auto& [key, nDialog] : {std::pair(Qt::Key_F2, c_nIdModeDlg),
                                     {Qt::Key_F3, c_nIdSpectrumDlg},
                                     {Qt::Key_F4, c_nIdDynOptionDlg},
                                     {Qt::Key_F6, c_nIdNonlinStaticDlg}}) {
    person.AddScript(nDialog, {DialogStep::Cancel()});
    person.Watch([&press, nKey = key] { press(nKey); });
    EXPECT_FALSE(person.HasUnusedScripts()) << nDialog;
  }
  EXPECT_FALSE(window.GetDocument().IsModified());
  EXPECT_FALSE(window.GetDocument().HasResult(host::ResultKind::Linear));
  press(Qt::Key_F9);
  for (const host::ResultKind kind : {host::ResultKind::Linear, host::ResultKind::Nonlinear, host::ResultKind::Modes,
                                      host::ResultKind::Spectrum, host::ResultKind::History})
    EXPECT_TRUE(window.GetDocument().HasResult(kind)) << GetSuffix(kind);
}

/// Every text of a window that a person can see or bring to sight, with the widget's name.
QStringList ListTexts(const QWidget& window) {
  QStringList texts = {window.windowTitle()};
  const auto add = [&texts](const QObject& owner, const QString& strText) {
    if (!strText.isEmpty()) texts << owner.objectName() + QStringLiteral(": ") + strText;
  };
  for (const QAction* const pAction : window.findChildren<QAction*>()) {
    if (!pAction->objectName().isEmpty()) add(*pAction, pAction->text() + u' ' + pAction->toolTip());
  }
  for (const QWidget* const pWidget : window.findChildren<QWidget*>()) {
    if (pWidget->objectName().startsWith(QStringLiteral("qt_"))) continue;
    add(*pWidget, pWidget->toolTip() + u' ' + pWidget->windowTitle());
    for (const char* const pszText : {"text", "title", "placeholderText", "plainText", "prefix"})
      add(*pWidget, pWidget->property(pszText).toString());
    if (const auto* const pBar = qobject_cast<const QStatusBar*>(pWidget)) add(*pBar, pBar->currentMessage());
    if (const auto* const pBox = qobject_cast<const QComboBox*>(pWidget)) {
      for (int k = 0; k < pBox->count(); ++k) add(*pBox, pBox->itemText(k));
    }
    const auto* const pView = qobject_cast<const QAbstractItemView*>(pWidget);
    const QAbstractItemModel* const pModel = pView != nullptr ? pView->model() : nullptr;
    if (pModel == nullptr) continue;
    for (int c = 0; c < pModel->columnCount(); ++c) {
      add(*pView, pModel->headerData(c, Qt::Horizontal).toString());
      for (int r = 0; r < pModel->rowCount(); ++r) {
        const QModelIndex index = pModel->index(r, c);
        add(*pView, index.data().toString() + u' ' + index.data(Qt::ToolTipRole).toString());
        for (int k = 0; k < pModel->rowCount(index); ++k) add(*pView, pModel->index(k, c, index).data().toString());
      }
    }
  }
  return texts;
}

QSet<QString> ListNames(const QStringList& texts) {
  QSet<QString> names;
  for (const QString& strText : texts) {
    if (strText.contains(QStringLiteral(": "))) names << strText.section(QStringLiteral(": "), 0, 0);
  }
  return names;
}

TEST_F(Ways, SpeaksOneLanguageThroughout) {
  const QRegularExpression chinese(QStringLiteral("[\\x{4e00}-\\x{9fff}]"));
  host::Job job = MakeShakenFrame();
  job.strTitle = "frame";
  std::get<host::StaticJob>(job.analyses[1]).nMaxIterations = 1;  // fails
  {
    CMainWindow window(Settings());
    window.resize(1800, 1100);
    window.show();
    ASSERT_TRUE(window.OpenJob(WriteJob("spoken.json", job)));
    Trigger(window, "run_all");
    Find<QComboBox>(window, "diagram")->setCurrentIndex(2);
    Find<QDockWidget>(window, "history_dock")->raise();
    window.GetDocument().Select({{0, 1, 6}, {0}});
    WriteFile(Path("spoken_StaticLinearSol.txt"), "torn");
    window.GetDocument().RefreshResults();
    EXPECT_TRUE(Find<QLabel>(window, "table_message")->text().contains(QStringLiteral("损坏")));
    Trigger(window, "manual");
    QTest::qWait(30);
    QWidget* pManual = nullptr;
    for (QWidget* const pWidget : QApplication::topLevelWidgets()) {
      if (pWidget->objectName() == QStringLiteral("help_window")) pManual = pWidget;
    }
    ASSERT_NE(pManual, nullptr);
    const QStringList before = ListTexts(window) + ListTexts(*pManual);
    Trigger(window, "language_en");
    QTest::qWait(30);
    const QStringList after = ListTexts(window) + ListTexts(*pManual);
    EXPECT_GE(before.filter(chinese).size(), 200);
    for (const QString& strName : ListNames(before) - ListNames(after))
      ADD_FAILURE() << strName.toStdString() << " lost";
    for (QString strText : after.filter(chinese)) {
      strText.remove(QStringLiteral("在给定的迭代步内计算不收敛！\n请增加最大迭代步数！"));  // the module's own words
      const bool bMeant = strText.contains(QStringLiteral("语言")) || strText.contains(QStringLiteral("中文")) ||
                          strText.startsWith(QStringLiteral("console: "));
      EXPECT_TRUE(bMeant || !strText.contains(chinese)) << strText.toStdString();
    }
    EXPECT_TRUE(pManual->windowTitle().endsWith(QStringLiteral(" - Skyframe manual")));
    EXPECT_GT(pManual->windowTitle().size(), 20) << "the page's heading comes first";
    Trigger(window, "language_zh");
    QTest::qWait(30);
    EXPECT_EQ(ListTexts(window).filter(chinese).size(),
              before.filter(chinese).size() - ListTexts(*pManual).filter(chinese).size());
    Trigger(window, "language_en");
  }
  EXPECT_EQ(host::GetLanguage(), host::Language::English) << "as it was before the window";
  const CMainWindow again(Settings());
  EXPECT_EQ(Find<QAction>(again, "open")->text(), QStringLiteral("&Open…")) << "remembered";
}

}  // namespace
}  // namespace skyframe::gui
