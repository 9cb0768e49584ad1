// What assistive programs are told while something happens.
#pragma once

#include <QAccessible>
#include <QMetaEnum>
#include <algorithm>
#include <string>
#include <vector>

// Nobody is told anything while no assistive program is there. Qt's own tests say that one is by
// private headers, which not every system has; these are the names behind them.
QT_BEGIN_NAMESPACE
class Q_GUI_EXPORT QPlatformAccessibility {
  public:
    void setActive(bool active);
};
class Q_GUI_EXPORT QPlatformIntegration {
  public:
    QPlatformAccessibility* accessibility() const;
};
class Q_GUI_EXPORT QGuiApplicationPrivate {
  public:
    static QPlatformIntegration* platform_integration;
};
QT_END_NAMESPACE

namespace wynconfig {

/// Hears what is told from when it is made until it goes. One at a time.
class AccessEvents {
  public:
    AccessEvents()
        : m_wasActive(QAccessible::isActive()), m_before(QAccessible::installUpdateHandler(hear)) {
        pretend(true);
        heard().clear();
    }
    ~AccessEvents() {
        QAccessible::installUpdateHandler(m_before);
        pretend(m_wasActive);
    }
    AccessEvents(const AccessEvents&) = delete;
    AccessEvents& operator=(const AccessEvents&) = delete;

    /// What was told of a kind, each by the name that the element had by then, and, of a value or a
    /// tick, how it stood.
    std::vector<std::string> of(QAccessible::Event kind) const {
        std::vector<std::string> found;
        for (const Heard& each : heard()) {
            if (each.kind == kind) found.push_back(each.text);
        }
        return found;
    }
    bool has(QAccessible::Event kind, const std::string& text) const {
        const std::vector<std::string> found = of(kind);
        return std::find(found.begin(), found.end(), text) != found.end();
    }

  private:
    struct Heard {
        QAccessible::Event kind;
        std::string text;
    };

    /// The one that all platforms share that have none of their own, as off screen.
    static void pretend(bool active) {
        QGuiApplicationPrivate::platform_integration->accessibility()->setActive(active);
    }

    static std::vector<Heard>& heard() {
        static std::vector<Heard> all;
        return all;
    }

    static void hear(QAccessibleEvent* event) {
        const QAccessibleInterface* element = event->accessibleInterface();
        std::string text;
        if (element) text = element->text(QAccessible::Name).toStdString();
        if (event->type() == QAccessible::DescriptionChanged && element)
            text += ": " + element->text(QAccessible::Description).toStdString();
        if (event->type() == QAccessible::ValueChanged)
            text +=
                ": " +
                static_cast<QAccessibleValueChangeEvent*>(event)->value().toString().toStdString();
        if (event->type() == QAccessible::StateChanged && element &&
            static_cast<QAccessibleStateChangeEvent*>(event)->changedStates().checked)
            text += element->state().checked ? ": checked" : ": unchecked";
        heard().push_back({event->type(), text});
    }

    bool m_wasActive;
    QAccessible::UpdateHandler m_before;
};

}  // namespace wynconfig
