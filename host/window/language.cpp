// Changing the language of the component's texts, and of Qt's, alike.
#include "window/language.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include "texts/phrase.h"
#include "window/wording.h"

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

/// How numbers and dates are written: as the user's system has it, where that is of the language.
QLocale localeOf(const std::string& tag) {
    const QLocale ofTag(QString::fromStdString(tag));
    const QLocale system = QLocale::system();
    return system.language() == ofTag.language() && system.script() == ofTag.script() ? system
                                                                                      : ofTag;
}

std::string wholeNumber(long long number) {
    return QLocale().toString(static_cast<qlonglong>(number)).toStdString();
}

std::string decimalNumber(double number) {
    return QLocale().toString(number, 'g', QLocale::FloatingPointShortest).toStdString();
}

}  // namespace

void useOwnLanguage(const std::string& resources, const std::string& language) {
    usePhrases(hostTextFolder(resources), language, {wholeNumber, decimalNumber});
}

std::shared_ptr<wynconfig::ResourceManager> useLanguage(const std::string& resources,
                                                        const std::string& language) {
    auto texts = wynconfig::makeBundleResourceManager(resources, language);
    const wynconfig::Language shown = wynconfig::bundleLanguage(resources, language);
    useOwnLanguage(resources, language);
    QLocale::setDefault(localeOf(shown.tag));
    translateQt(shown.tag);
    QApplication::setLayoutDirection(shown.rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    emit LanguageNews::instance().changed();
    return texts;
}

}  // namespace host
