// Identifiers (part numbers, names of sessions and part formats, paths, command lines) are read
// from left to right in themselves, also where the window is laid out from right to left. What they
// are shown with are marks that no stored, read or copied text has.
#pragma once

#include <QComboBox>
#include <QLineEdit>
#include <QString>
#include <QStringList>
#include <QStyledItemDelegate>
#include <string>

namespace host {

/// An identifier as it stands in a sentence that is shown: apart from the text around it, and from
/// left to right.
QString isolated(const QString& identifier);
QString isolated(const std::string& identifier);

/// A sentence made elsewhere, in which these identifiers stand as `isolated` shows them.
QString isolatedIn(const QString& sentence, QStringList identifiers);

/// A value of any kind as it stands in a line that is shown: apart from the text around it, in the
/// direction of its first letter.
QString apart(const QString& value);

/// A text without the marks.
QString withoutMarks(QString text);

/// Paints the texts of a list or table in their own direction. The model, and whoever reads it,
/// knows nothing of it.
class DirectionDelegate : public QStyledItemDelegate {
    Q_OBJECT

  public:
    enum class Reads {
        LeftToRight,  ///< identifiers
        AsItBegins,   ///< text, by its first letter
    };
    explicit DirectionDelegate(QObject* parent, Reads reads = Reads::LeftToRight)
        : QStyledItemDelegate(parent), m_reads(reads) {}

    QString displayText(const QVariant& value, const QLocale& locale) const override;

  private:
    Reads m_reads;
};

/// A combo box of identifiers, painted likewise in the box and in its list.
class IdentifierBox : public QComboBox {
    Q_OBJECT

  public:
    explicit IdentifierBox(QWidget* parent = nullptr);

  protected:
    void initStyleOption(QStyleOptionComboBox* option) const override;
};

/// A box to type an identifier into. The text runs from left to right; the side that it stands on
/// is that of the layout.
class IdentifierEdit : public QLineEdit {
    Q_OBJECT

  public:
    explicit IdentifierEdit(const QString& text = {}, QWidget* parent = nullptr);

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void align();
};

}  // namespace host
