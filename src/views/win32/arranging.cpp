// Where the controls of a form stand, by its layout alone. Reckons in pixels and knows no windows.
#include "views/win32/arranging.h"

#include <algorithm>
#include <utility>

#include "platform/forms/growing.h"

namespace wynconfig::native {

namespace {

using Kind = Layout::Kind;

/// One of several that share a length.
struct Share {
    int least = 0;
    int wanted = 0;
    int weight = 0;  ///< of what is left over
};

/// Gives each what it wants, and what is left by weight; or less than that where there is less.
std::vector<int> shareOut(const std::vector<Share>& shares, int length) {
    int wanted = 0;
    int least = 0;
    int weights = 0;
    for (const Share& each : shares) {
        wanted += each.wanted;
        least += each.least;
        weights += each.weight;
    }
    std::vector<int> lengths;
    int left = length - wanted;
    int spare = wanted - least;
    for (const Share& each : shares) {
        int part = 0;
        if (left > 0 && weights > 0) {
            part = left * each.weight / weights;
            weights -= each.weight;
        } else if (left < 0 && spare > 0) {
            const int own = each.wanted - each.least;
            part = -std::min(own, -left * own / spare);
            spare -= own;
        }
        left -= part;
        lengths.push_back(each.wanted + part);
    }
    return lengths;
}

/// Gives those that grow one and the same length, where each has enough with that.
void evenOutGrowing(std::vector<Share>& shares, int length) {
    int count = 0;
    int most = 0;
    for (const Share& each : shares) {
        if (each.weight == 0) length -= each.wanted;
        if (each.weight > 0) most = std::max(most, each.least);
        count += each.weight;
    }
    if (count == 0 || length / count < most) return;
    for (Share& each : shares) {
        if (each.weight > 0) each.wanted = length / count;
    }
}

bool isButton(const Layout& node) {
    return node.kind == Kind::Single && node.control->kind() == ControlKind::Button;
}

bool endsInStretch(const std::vector<Layout>& nodes) {
    return !nodes.empty() && nodes.back().kind == Kind::Stretch;
}

/// Whether a node has a use for more width than it needs.
bool widens(const Layout& node) {
    switch (node.kind) {
        case Kind::Stretch:
        case Kind::Titled:
        case Kind::Field:
            return true;
        case Kind::Single:
            return isBox(*node.control);
        default:
            return std::any_of(node.children.begin(), node.children.end(), widens);
    }
}

bool anyGrows(const std::vector<Layout>& nodes) {
    return std::any_of(nodes.begin(), nodes.end(), [](const Layout& each) { return each.grows; });
}

/// How much of the width that there is a box takes: one for few characters no more than it needs.
int widthOfBox(const Layout& node, const Room& own, int room) {
    const bool isNarrow = node.chars > 0 && own.least.width == own.wanted.width;
    return isNarrow ? std::min(own.wanted.width, room) : room;
}

/// Whether a row has lists with buttons beside them, which are to be equally wide.
bool hasAttendedLists(const std::vector<Layout>& nodes) {
    return std::any_of(nodes.begin(), nodes.end(), [](const Layout& each) {
        return each.kind == Kind::Titled && !each.children.empty();
    });
}

template <class Combine>
Room both(const Room& one, const Room& other, const Combine& combine) {
    return {combine(one.least, other.least), combine(one.wanted, other.wanted)};
}

Room beside(const Room& one, const Room& other, int gap) {
    return both(one, other, [gap](const Extent& a, const Extent& b) -> Extent {
        const int between = a.width > 0 && b.width > 0 ? gap : 0;
        return {a.width + between + b.width, std::max(a.height, b.height)};
    });
}

Room below(const Room& one, const Room& other, int gap) {
    return both(one, other, [gap](const Extent& a, const Extent& b) -> Extent {
        const int between = a.height > 0 && b.height > 0 ? gap : 0;
        return {std::max(a.width, b.width), a.height + between + b.height};
    });
}

Room widest(const Room& one, const Room& other) {
    return both(one, other, [](const Extent& a, const Extent& b) -> Extent {
        return {std::max(a.width, b.width), std::max(a.height, b.height)};
    });
}

Place inside(const Place& place, const Insets& insets) {
    return {place.x + insets.left, place.y + insets.top, place.width - insets.left - insets.right,
            place.height - insets.top - insets.bottom};
}

}  // namespace

Arranging::Arranging(const Layout& body, Ground& ground, const Gaps& gaps)
    : m_body(body), m_ground(ground), m_gaps(gaps) {
    ask(body);
}

void Arranging::ask(const Layout& node) {
    for (const Control* each : {node.label, node.control}) {
        if (each && each->kind() != ControlKind::Container) m_rooms[each] = m_ground.roomOf(*each);
    }
    for (const Layout& child : node.children) ask(child);
    evenOut(node.children);
}

/// Makes buttons that stand together equally wide.
void Arranging::evenOut(const Nodes& nodes) {
    std::vector<Room*> buttons;
    int width = 0;
    for (const Layout& each : nodes) {
        if (!isButton(each) || each.into) continue;
        buttons.push_back(&m_rooms.at(each.control));
        width = std::max(width, buttons.back()->wanted.width);
    }
    if (buttons.size() < 2) return;
    for (Room* each : buttons) each->least.width = each->wanted.width = width;
}

/// What is hidden for a while leaves its room, so that nothing around it jumps; buttons don't.
bool Arranging::takesRoom(const Layout& node) const {
    return node.kind != Kind::Stretch && (!isButton(node) || node.control->visible());
}

Arranging::Columns Arranging::columnsOf(std::span<const Layout> nodes) {
    Columns columns;
    for (const Layout& each : nodes) {
        if (each.kind != Kind::Field) continue;
        if (each.label)
            columns.labels =
                std::max(columns.labels, roomOf(*each.label).wanted.width + m_gaps.between);
        if (isBox(*each.control) && !endsInStretch(each.children))
            columns.behind = std::max(columns.behind, inRow(each.children).wanted.width);
    }
    return columns;
}

int Arranging::gapOf(const Nodes& nodes) const {
    return &nodes == &m_body.children ? m_gaps.outer : m_gaps.between;
}

Room Arranging::room() {
    return measure(m_body, {});
}

Room Arranging::measure(const Layout& node, const Columns& columns) {
    if (const auto known = m_measured.find(&node); known != m_measured.end()) return known->second;
    return m_measured[&node] = measureNew(node, columns);
}

Room Arranging::measureNew(const Layout& node, const Columns& columns) {
    if (!takesRoom(node)) return {};
    switch (node.kind) {
        case Kind::Column:
            return stacked(node.children);
        case Kind::Row:
        case Kind::Buttons:
            return inRow(node.children);
        case Kind::Group:
            return widest(within(node, stacked(node.children)), roomOf(*node.control));
        case Kind::Pane:
            return within(node, stacked(node.children));
        case Kind::Tabs:
            return ofTabs(node);
        case Kind::Field:
            return ofField(node, columns);
        case Kind::Titled:
            return ofTitled(node);
        default:
            return roomOf(*node.control);
    }
}

Room Arranging::stacked(const Nodes& nodes) {
    const Columns columns = columnsOf(nodes);
    Room all;
    for (const Layout& each : nodes) all = below(all, measure(each, columns), gapOf(nodes));
    return all;
}

Room Arranging::inRow(const Nodes& nodes) {
    Room all;
    for (const Layout& each : nodes)
        all = beside(all, measure(each, columnsOf({&each, 1})), m_gaps.between);
    return all;
}

Room Arranging::within(const Layout& node, Room inside) const {
    const Insets insets = m_ground.insetsOf(*node.control);
    for (Extent* each : {&inside.least, &inside.wanted}) {
        each->width += insets.left + insets.right;
        each->height += insets.top + insets.bottom;
    }
    return inside;
}

Room Arranging::ofTabs(const Layout& node) {
    Room panes;
    for (const Layout& each : node.children) panes = widest(panes, measure(each, {}));
    return widest(within(node, panes), roomOf(*node.control));
}

Room Arranging::ofField(const Layout& node, const Columns& columns) {
    Room room = beside(roomOf(*node.control), inRow(node.children), m_gaps.between);
    if (isBox(*node.control) && columns.behind > 0 && !endsInStretch(node.children))
        room = beside(roomOf(*node.control), {{columns.behind, 0}, {columns.behind, 0}},
                      m_gaps.between);
    room = widest(
        room, {{0, inRow(node.children).least.height}, {0, inRow(node.children).wanted.height}});
    room.least.width += columns.labels;
    room.wanted.width += columns.labels;
    if (!node.label) return room;
    const int label = roomOf(*node.label).wanted.height;
    return widest(room, {{0, label}, {0, label}});
}

Room Arranging::ofTitled(const Layout& node) {
    const Room box = below(roomOf(*node.label), roomOf(*node.control), m_gaps.belowTitle);
    Room attendants = stacked(node.children);
    const int title = roomOf(*node.label).wanted.height + m_gaps.belowTitle;
    if (attendants.wanted.height > 0) {
        attendants.least.height += title;
        attendants.wanted.height += title;
    }
    return beside(box, attendants, m_gaps.between);
}

void Arranging::arrange(const Place& all) {
    put(m_body, all, {});
}

void Arranging::put(const Layout& node, const Place& place, const Columns& columns) {
    switch (node.kind) {
        case Kind::Column:
            return putStack(node.children, place);
        case Kind::Row:
            return putRow(node.children, place);
        case Kind::Buttons:
            return putButtons(node.children, place);
        case Kind::Group:
            m_ground.put(*node.control, place);
            return putStack(node.children, inside(place, m_ground.insetsOf(*node.control)));
        case Kind::Tabs:
            return putTabs(node, place);
        case Kind::Field:
            return putField(node, place, columns);
        case Kind::Titled:
            return putTitled(node, place);
        case Kind::Single:
            return putSingle(node, place);
        default:
            return;
    }
}

void Arranging::putStack(const Nodes& nodes, const Place& place) {
    const Columns columns = columnsOf(nodes);
    const bool byWord = anyGrows(nodes);
    std::vector<Share> shares;
    int gaps = 0;
    bool first = true;
    for (const Layout& each : nodes) {
        const Room room = measure(each, columns);
        const bool grows = byWord ? each.grows : growsDown(each);
        shares.push_back({room.least.height, room.wanted.height, grows ? 1 : 0});
        if (takesRoom(each) && !std::exchange(first, false)) gaps += gapOf(nodes);
    }
    const std::vector<int> heights = shareOut(shares, place.height - gaps);
    int y = place.y;
    first = true;
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        if (takesRoom(nodes[i]) && !std::exchange(first, false)) y += gapOf(nodes);
        put(nodes[i], {place.x, y, place.width, heights[i]}, columns);
        y += heights[i];
    }
}

void Arranging::putRow(const Nodes& nodes, const Place& place) {
    const bool byWord = anyGrows(nodes);
    const bool lists = hasAttendedLists(nodes);
    std::vector<Share> shares;
    int gaps = 0;
    bool first = true;
    for (const Layout& each : nodes) {
        const Room room = measure(each, columnsOf({&each, 1}));
        const bool grows = byWord ? each.grows : widens(each);
        // Lists share by what they ask for, buttons and all, so that they come out alike.
        shares.push_back({room.least.width, room.wanted.width,
                          !grows  ? 0
                          : lists ? room.wanted.width
                                  : 1});
        if (takesRoom(each) && !std::exchange(first, false)) gaps += m_gaps.between;
    }
    if (byWord && !lists) evenOutGrowing(shares, place.width - gaps);
    const std::vector<int> widths = shareOut(shares, place.width - gaps);
    int x = place.x;
    first = true;
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        if (takesRoom(nodes[i]) && !std::exchange(first, false)) x += m_gaps.between;
        put(nodes[i], {x, place.y, widths[i], place.height}, columnsOf({&nodes[i], 1}));
        x += widths[i];
    }
}

/// The buttons that end the dialog stand at its end, to accept, to reject and to apply.
void Arranging::putButtons(const Nodes& nodes, const Place& place) {
    int x = place.x + place.width - inRow(nodes).wanted.width;
    for (const Layout& each : nodes) {
        if (!takesRoom(each)) continue;
        const int width = roomOf(*each.control).wanted.width;
        putAlone(*each.control, {x, place.y, width, place.height});
        x += width + m_gaps.between;
    }
}

void Arranging::putTabs(const Layout& node, const Place& place) {
    m_ground.put(*node.control, place);
    const Place page = inside(place, m_ground.insetsOf(*node.control));
    for (const Layout& each : node.children) {
        m_ground.put(*each.control, page);
        putStack(each.children,
                 inside({0, 0, page.width, page.height}, m_ground.insetsOf(*each.control)));
    }
}

void Arranging::putField(const Layout& node, const Place& place, const Columns& columns) {
    const bool box = isBox(*node.control);
    const Room own = roomOf(*node.control);
    const int left = place.x + columns.labels;
    const int room = place.width - columns.labels;
    const int line = growsDown(node) ? own.least.height : place.height;
    if (node.label) {
        const Extent label = roomOf(*node.label).wanted;
        m_ground.put(*node.label, {place.x, place.y + std::max(0, (line - label.height) / 2),
                                   columns.labels - m_gaps.between, label.height});
    }
    int width = room;
    const int behind = inRow(node.children).wanted.width;
    if (box && !endsInStretch(node.children))
        width = widthOfBox(node, own,
                           node.children.empty() ? room : room - columns.behind - m_gaps.between);
    else if (!node.children.empty())
        width = std::min(own.wanted.width, std::max(own.least.width, room - behind));
    putAlone(*node.control, {left, place.y, width, place.height});
    if (node.children.empty()) return;
    const int x = left + width + m_gaps.between;
    putRow(node.children, {x, place.y, place.x + place.width - x, place.height});
}

void Arranging::putTitled(const Layout& node, const Place& place) {
    const Extent label = roomOf(*node.label).wanted;
    const int title = label.height + m_gaps.belowTitle;
    const int attendants = stacked(node.children).wanted.width;
    const int aside = attendants > 0 ? attendants + m_gaps.between : 0;
    const int x = place.x + (node.behindBox ? 0 : aside);
    const int width = place.width - aside;
    const Place line{x, place.y + title, width, place.height - title};
    m_ground.put(*node.label, {x, place.y, width, label.height});
    const int own =
        growsDown(node) ? line.height : std::min(line.height, roomOf(*node.control).wanted.height);
    m_ground.put(*node.control,
                 {line.x, line.y, widthOfBox(node, roomOf(*node.control), width), own});
    if (attendants == 0) return;
    putStack(node.children, {node.behindBox ? x + width + m_gaps.between : place.x, line.y,
                             attendants, line.height});
}

/// A button between lists is as wide as high, whatever room there is.
void Arranging::putSingle(const Layout& node, const Place& place) {
    Place at = place;
    if (isBox(*node.control)) at.width = widthOfBox(node, roomOf(*node.control), place.width);
    if (node.into) {
        at.width = std::min(place.width, roomOf(*node.control).wanted.width);
        at.x += (place.width - at.width) / 2;
    }
    putAlone(*node.control, at);
}

/// All but lists keep their height, and stand in the middle of a row.
void Arranging::putAlone(const Control& control, const Place& place) {
    Place at = place;
    if (control.kind() != ControlKind::ListView) {
        at.height = std::min(place.height, roomOf(control).wanted.height);
        at.y += (place.height - at.height) / 2;
    }
    m_ground.put(control, at);
}

}  // namespace wynconfig::native
