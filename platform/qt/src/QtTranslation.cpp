#include "skyframe/qt/QtTranslation.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>
#include <memory>

#include "skyframe/qt/Font.h"

namespace skyframe {

bool UseQtTranslation(std::string_view strLocale) {
  const QString strName = QStringLiteral("skyframe-qt");
  const std::unique_ptr<QTranslator> pFormer(QCoreApplication::instance()->findChild<QTranslator*>(strName));
  auto pTranslator = std::make_unique<QTranslator>();
  const QString strFile = QStringLiteral("qtbase_") + ToQt(strLocale);
  if (!pTranslator->load(strFile, QLibraryInfo::path(QLibraryInfo::TranslationsPath))) return false;
  pTranslator->setObjectName(strName);
  QCoreApplication::installTranslator(pTranslator.get());
  pTranslator.release()->setParent(QCoreApplication::instance());
  return true;
}

}  // namespace skyframe
