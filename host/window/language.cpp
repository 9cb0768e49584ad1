// Changing the language of the component's texts, and of Qt's, alike.
#include "window/language.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace host {

namespace {

/// Qt's own words. A language without a translation leaves them in English.
void translateQt(const std::string& tag) {
    static auto* translator = new QTranslator(QCoreApplication::instance());
    QCoreApplication::removeTranslator(translator);
    if (translator->load(QLocale(QString::fromStdString(tag)), QStringLiteral("qtbase"),
                         QStringLiteral("_"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(translator);
}

}  // namespace

std::shared_ptr<wynconfig::ResourceManager> useLanguage(const std::string& resources,
                                                        const std::string& language) {
    auto texts = wynconfig::makeBundleResourceManager(resources, language);
    const wynconfig::Language shown = wynconfig::bundleLanguage(resources, language);
    translateQt(shown.tag);
    QApplication::setLayoutDirection(shown.rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    return texts;
}

}  // namespace host
