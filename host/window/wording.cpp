// Texts for the toolkit.
#include "window/wording.h"

#include <QDateTime>
#include <QLocale>
#include <vector>

#include "texts/phrase.h"
#include "wynconfig/mnemonic.h"

namespace host {

QString wording(const char* key, const QStringList& values) {
    std::vector<std::string> texts;
    for (const QString& value : values) texts.push_back(value.toStdString());
    return QString::fromStdString(phrase(key, texts));
}

QString plainWording(const char* key) {
    QString words = QString::fromStdString(wynconfig::plainCaption(phrase(key)));
    // The mark of a key in brackets stands in front of what ends a caption.
    const QString end = QStringLiteral("…:：\u00a0 ");
    while (!words.isEmpty() && end.contains(words.back())) words.chop(1);
    return QString::fromStdString(wynconfig::plainCaption(words.toStdString()));
}

QString numberText(qlonglong number) {
    return QString::fromStdString(wholeText(number));
}

QString momentText(const QDateTime& moment) {
    return QLocale().toString(moment.toLocalTime(), QLocale::ShortFormat);
}

LanguageNews& LanguageNews::instance() {
    static LanguageNews news;
    return news;
}

void worded(const QObject* owner, const std::function<void()>& show) {
    show();
    QObject::connect(&LanguageNews::instance(), &LanguageNews::changed, owner, show);
}

}  // namespace host
