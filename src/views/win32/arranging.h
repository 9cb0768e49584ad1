// Where the controls of a form stand, by its layout alone. Reckons in pixels and knows no windows.
#pragma once

#include <span>
#include <unordered_map>
#include <vector>

#include "wynconfig/layout.h"

namespace wynconfig::native {

struct Extent {
    int width = 0;
    int height = 0;
};

/// How much room something asks for.
struct Room {
    Extent least;   ///< with less something is cut off
    Extent wanted;  ///< what is comfortable
};

struct Place {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    bool operator==(const Place&) const = default;
};

/// What a frame, the tabs or a pane have around their inside.
struct Insets {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
};

/// The window whose controls are arranged.
class Ground {
  public:
    virtual ~Ground() = default;
    /// Of a frame or tabs, what their captions alone need.
    virtual Room roomOf(const Control& control) const = 0;
    /// Of a frame, tabs or a pane.
    virtual Insets insetsOf(const Control& control) const = 0;
    /// Puts a control to its place. A pane has coordinates of its own for what stands in it.
    virtual void put(const Control& control, const Place& place) = 0;
};

/// Distances between what stands beside or below each other.
struct Gaps {
    int between = 0;
    int belowTitle = 0;  ///< a label belongs to its box more than the box to its neighbours
    int outer = 0;       ///< between what stands on the window itself
};

/// One way to arrange a layout: the sizes of all controls are asked once, at the start.
class Arranging {
  public:
    /// Both outlive the arranging.
    Arranging(const Layout& body, Ground& ground, const Gaps& gaps);

    /// What everything needs together.
    Room room();
    /// Puts every control to its place.
    void arrange(const Place& all);

  private:
    /// What fields below each other share.
    struct Columns {
        int labels = 0;  ///< width of the labels and the gap behind them
        int behind = 0;  ///< width of what stands behind the boxes
    };
    using Nodes = std::vector<Layout>;

    void ask(const Layout& node);
    void evenOut(const Nodes& nodes);
    const Room& roomOf(const Control& control) const { return m_rooms.at(&control); }
    bool takesRoom(const Layout& node) const;
    Columns columnsOf(std::span<const Layout> nodes);
    int gapOf(const Nodes& nodes) const;

    Room measure(const Layout& node, const Columns& columns);
    Room measureNew(const Layout& node, const Columns& columns);
    Room stacked(const Nodes& nodes);
    Room inRow(const Nodes& nodes);
    Room within(const Layout& node, Room inside) const;
    Room ofTabs(const Layout& node);
    Room ofField(const Layout& node, const Columns& columns);
    Room ofTitled(const Layout& node);

    void put(const Layout& node, const Place& place, const Columns& columns);
    void putStack(const Nodes& nodes, const Place& place);
    void putRow(const Nodes& nodes, const Place& place);
    void putButtons(const Nodes& nodes, const Place& place);
    void putTabs(const Layout& node, const Place& place);
    void putField(const Layout& node, const Place& place, const Columns& columns);
    void putTitled(const Layout& node, const Place& place);
    void putSingle(const Layout& node, const Place& place);
    void putAlone(const Control& control, const Place& place);

    const Layout& m_body;
    Ground& m_ground;
    Gaps m_gaps;
    std::unordered_map<const Control*, Room> m_rooms;
    std::unordered_map<const Layout*, Room> m_measured;
};

}  // namespace wynconfig::native
