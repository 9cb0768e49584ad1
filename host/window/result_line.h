// What came of the last action, whichever part of the window it was called from.
#pragma once

#include <QWidget>

class QLabel;

namespace host {

class ElidedLabel;

/// One sentence that stays until the next one. A failure has a sign in front, and screen readers
/// are told the word.
class ResultLine : public QWidget {
    Q_OBJECT

  public:
    explicit ResultLine(QWidget* parent = nullptr);

    /// Shows a sentence, and announces it to screen readers.
    void tell(const QString& sentence, bool isFailure);

  private:
    QLabel* m_sign;
    ElidedLabel* m_sentence;
};

}  // namespace host
