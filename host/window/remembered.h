// What the window remembers between starts, in a file of the user's.
#pragma once

#include <QRect>
#include <QSettings>
#include <QString>
#include <QStringList>
#include <filesystem>
#include <string>
#include <vector>

#include "sending/parts_list.h"

class QWidget;

namespace host {

/// A place of the same size, or the largest that there is room for, within an area.
QRect fitted(QRect place, const QRect& area);

/// The values that were kept last. What is not there, or can't be read, is as at the first start.
class Remembered {
  public:
    /// @param file  made, with its folder, when something is kept
    explicit Remembered(const std::filesystem::path& file);

    /// Language of the windows; empty: the user's.
    std::string language() const;
    void keepLanguage(const std::string& language);

    QString session() const;
    void keepSession(const QString& name);

    /// The folders of the stores that were open, the last one first.
    QStringList stores() const;
    /// Puts a store in front of the others; of many the oldest is forgotten.
    void keepStore(const QString& root);

    /// The numbers and quantities of the parts list.
    std::vector<PickedPart> parts() const;
    /// Whether the list was sent as it is.
    bool partsWereSent() const;
    void keepParts(const std::vector<PickedPart>& parts, bool sent);

    /// Gives a window that was not shown yet its size, at the first start one that the screen has
    /// room for, its place, which lies on a screen in any case, and the positions of its splitters
    /// that have object names. Keeps these from then on.
    void restore(QWidget& window);
    /// Keeps the window's size and place.
    void keep(const QWidget& window);

    /// Has all of it in the file. False where that can't be written: nothing of it will be there
    /// again.
    bool isKept();

  private:
    mutable QSettings m_settings;
};

}  // namespace host
