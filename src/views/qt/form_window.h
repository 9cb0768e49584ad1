// The window of one form: shows what the form's controls are, and runs until the form unloads.
#pragma once

#include <QDialog>
#include <QEventLoop>
#include <QSpacerItem>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/forms/refusal.h"
#include "views/qt/binding.h"
#include "views/qt/form_builder.h"
#include "wynconfig/form.h"
#include "wynconfig/keyboard.h"

class QShortcutEvent;

namespace wynconfig::desktop {

class HelpWindow;
class RowList;
class ScrolledContent;

class FormWindow : public QDialog, private FormObserver {
  public:
    FormWindow(Form& form, UserInput input, QWidget* parent);
    ~FormWindow() override;

    /// Shows the window and returns once the form has unloaded.
    /// @param cameUp  is called from the window's event loop as soon as it runs
    void run(const std::function<void()>& cameUp);

    /// False once the form has unloaded.
    bool live() const { return m_form != nullptr; }
    const std::string& name() const { return m_name; }
    /// The form shown here; null once it has unloaded.
    Form* form() const { return m_form; }
    Binding* binding(const Control& control) const;
    /// Shows all changes that have not been shown yet.
    void sync();
    /// The window was pulled to this size, whatever its limits are.
    void pullTo(const QSize& size);
    /// Runs what must not throw into an event loop; `run` raises its failure once the form is gone.
    template <class Work>
    void guarded(const Work& work) {
        m_door([&](const UserInput&) { work(); });
    }
    /// A box told the person of a failure: what the form turns to next is what was refused.
    /// @param why  what it told
    void markRefused(const std::string& why);
    /// Gives a control's widget the focus, also while another program has the keyboard.
    void takeFocusTo(QWidget& widget, Qt::FocusReason reason = Qt::OtherFocusReason);
    /// Leaves the form the way that changes the least: by its cancel button, else by the frame.
    void giveUp();

  protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    /// The dialog closes by its form alone.
    void reject() override {}

  private:
    void changed(Control* control) override;
    void focusMoved(Control& control) override;
    void unloaded() override;

    void watch();
    void syncLater();
    void showForm();
    void showSpokenNames();
    void showMovers();
    void showListHelps();
    /// Makes equal what a reader expects to be: widths of buttons, and where boxes start.
    void evenOut();
    /// Makes the window wide enough for its title and for a comfortable dialog.
    void applyLeastWidth();
    void applySize();
    /// Has the content scroll where the window would be larger than the screen.
    void fitScreen();
    /// Has all widgets reckon their sizes anew, which those of a hidden window don't by themselves.
    void measureAnew();
    void markDefaultButton();
    bool canFocus(const QWidget& widget) const;
    void settleFocus();
    void showRefused();
    void focusFirst();
    /// Where the Tab key leads now; null when nowhere.
    const Binding* stopAfter(const std::vector<Control*>& order, const Control* from,
                             bool forward) const;
    /// Goes to the line that looks for rows: of the list that has the focus, else the first one.
    bool takeFindKey(const QKeyEvent& key);
    /// Answers a key that was pressed in such a line; false when that is for the line.
    bool takeKeyIn(FilterLine& filter, const QKeyEvent& key);
    /// Ties a list to what its rows can be taken to by the mouse.
    void tieRows(ListView& list, RowList& rows);
    /// Offers what the buttons of a list do; false where it has none, or another menu is open.
    bool offerMenu(QObject* watched, const QPoint* at);
    bool takeMenuKey(QObject* watched, const QKeyEvent& key);
    /// Presses a button as soon as the event is over in which the person asked for it.
    void pressLater(Button& button);
    /// Has the form answer a key; false when it has no use for it.
    bool takeKey(const QKeyEvent& key);
    /// The key that a control marks in its caption was pressed. False: Qt shall deal with it.
    bool followKey(const QObject* marked, const QShortcutEvent& key);
    /// Does what comes of a key.
    void obey(const KeyAct& act);
    void showHelp();

    Form* m_form;
    std::string m_name;
    Door m_door;
    QEventLoop m_loop;
    BuiltForm m_built;
    std::unordered_map<const Control*, Binding*> m_byControl;
    std::unordered_map<const QObject*, Control*> m_byWidget;
    std::shared_ptr<const Font> m_font;
    ScrolledContent* m_scrolled = nullptr;  ///< null where the screen is large enough
    HelpWindow* m_help = nullptr;           ///< null until the person asks for it
    QSpacerItem* m_leastWidth;              ///< keeps the window wide enough
    QSize m_ownSize;                        ///< the size that the form gave the window
    QSize m_pulledTo;                       ///< the size, in twips, that the person last gave it
    bool m_fixed;                           ///< the person can't change the size
    bool m_formChanged = true;
    bool m_syncPending = false;
    bool m_syncing = false;
    Refusal m_refusal;
    QString m_whyRefused;
    const Control* m_refused = nullptr;  ///< what bears its mark on the screen
};

}  // namespace wynconfig::desktop
