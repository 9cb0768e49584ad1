// Labels that tell what came of something, in sentences with identifiers in them.
#pragma once

#include <QLabel>

namespace host {

/// Shows a sentence with the marks of its identifiers' direction. What is copied from it, and what
/// a screen reader is told, has none.
class SentenceLabel : public QLabel {
    Q_OBJECT

  public:
    explicit SentenceLabel(QWidget* parent = nullptr);

    virtual void tell(const QString& sentence);
    /// The sentence without marks.
    QString told() const;
    /// Breaks long sentences into lines, of which a person can copy.
    void letCopy();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    void copy(int clipboardMode) const;
};

}  // namespace host
