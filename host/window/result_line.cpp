// The sentence and its sign.
#include "window/result_line.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>

#include "window/elided_label.h"
#include "window/wording.h"

namespace host {

ResultLine::ResultLine(QWidget* parent)
    : QWidget(parent), m_sign(new QLabel), m_sentence(new ElidedLabel(Qt::ElideRight)) {
    m_sign->setObjectName(QStringLiteral("failureSign"));
    withName(m_sign, "RESULT_FAILURE");
    m_sentence->setObjectName(QStringLiteral("lastResult"));
    const int size = m_sentence->fontMetrics().height();
    m_sign->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(size));
    m_sign->hide();
    auto* line = new QHBoxLayout(this);
    // In line with what stands above it.
    line->setContentsMargins(line->contentsMargins().left(), 0, 0, 0);
    line->addWidget(m_sign);
    line->addWidget(m_sentence, 1);
}

void ResultLine::tell(const QString& sentence, bool isFailure) {
    show();
    m_sign->setVisible(isFailure);
    // On one line, whatever it was made for.
    m_sentence->tell(sentence.simplified());
    if (isFailure)
        m_sentence->setAccessibleName(wording("RESULT_FAILURE_OF", {m_sentence->told()}));
    // Also when it is the same sentence again.
    for (const auto kind : {QAccessible::NameChanged, QAccessible::Alert}) {
        QAccessibleEvent announcement(m_sentence, kind);
        QAccessible::updateAccessibility(&announcement);
    }
}

}  // namespace host
