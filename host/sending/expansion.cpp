// The layout of fields, records and pages.
#include "sending/expansion.h"

#include <algorithm>

#include "sending/characters.h"
#include "sending/tokens.h"

namespace host {

namespace {

/// As many characters of a text, repeated, as there are to fill.
std::string repeated(const std::string& text, std::size_t characters) {
    std::string filled;
    std::string_view rest;
    for (; characters > 0; --characters) {
        if (rest.empty()) rest = text;
        const std::size_t length = firstCharacterLength(rest);
        filled += rest.substr(0, length);
        rest.remove_prefix(length);
    }
    return filled;
}

/// Writes the pages of one list.
class PageWriter {
  public:
    PageWriter(const PartFormat& format, const PartsList& list)
        : m_format(format), m_perPart(format.record + format.separator) {
        m_onEveryPage = controlTokens();
        addField(m_onEveryPage, "<VIN>", format.vin, list.vin,
                 format.header + m_perPart + format.trailer);
    }

    void writePage(const std::vector<const PickedPart*>& parts, std::size_t page,
                   std::size_t pages) {
        const std::string place = std::to_string(page) + " of " + std::to_string(pages);
        m_onPage = m_onEveryPage;
        m_onPage.emplace_back("<PageHeader>", "Parts list, page " + place);
        m_onPage.emplace_back("<PageFooter>", "End of page " + place);
        m_expansion.text += expandTokens(m_format.header, m_onPage);
        for (const PickedPart* part : parts) writeRecord(*part, part == parts.back());
        m_expansion.text += expandTokens(m_format.trailer, m_onPage);
        m_expansion.pages = pages;
    }

    Expansion take() { return std::move(m_expansion); }

  private:
    void writeRecord(const PickedPart& part, bool last) {
        TokenValues values = m_onPage;
        addField(values, "<Part #>", m_format.part, part.number, m_perPart);
        addField(values, "<Quantity>", m_format.quantity, std::to_string(part.quantity), m_perPart);
        addField(values, "<Description>", m_format.description, part.description, m_perPart);
        m_expansion.text += expandTokens(m_format.record, values);
        if (!last) m_expansion.text += expandTokens(m_format.separator, values);
    }

    /// @param templates  where the token may stand; a value that goes nowhere is none that was cut
    void addField(TokenValues& values, std::string_view token, const FieldLayout& layout,
                  const std::string& value, const std::string& templates) {
        LaidOutValue laidOut = layOut(layout, value);
        if (laidOut.cut && templates.find(token) != std::string::npos) ++m_expansion.cutValues;
        values.emplace_back(token, std::move(laidOut.text));
    }

    const PartFormat& m_format;
    std::string m_perPart;  ///< the templates that the tokens of a part belong to
    TokenValues m_onEveryPage;
    TokenValues m_onPage;
    Expansion m_expansion;
};

}  // namespace

LaidOutValue layOut(const FieldLayout& layout, const std::string& value) {
    const std::optional<long> length = fieldLength(layout);
    if (!length) return {value, false};
    const auto room = static_cast<std::size_t>(*length);
    const std::size_t taken = characterCount(value);
    if (taken > room) return {std::string(firstCharacters(value, room)), true};
    const std::string pad = expandTokens(layout.pad, controlTokens());
    const std::string gap = repeated(pad.empty() ? " " : pad, room - taken);
    return {layout.right ? gap + value : value + gap, false};
}

Expansion expand(const PartFormat& format, const PartsList& list, bool reverse) {
    std::vector<const PickedPart*> parts;
    for (const PickedPart& part : list.parts) parts.push_back(&part);
    if (reverse) std::reverse(parts.begin(), parts.end());

    const std::optional<long> limit = recordLimit(format);
    const std::size_t perPage =
        limit ? static_cast<std::size_t>(*limit) : std::max<std::size_t>(parts.size(), 1);
    const std::size_t pages = std::max<std::size_t>((parts.size() + perPage - 1) / perPage, 1);
    PageWriter writer(format, list);
    for (std::size_t page = 1; page <= pages; ++page) {
        const std::size_t first = (page - 1) * perPage;
        const std::size_t end = std::min(first + perPage, parts.size());
        const auto at = [&](std::size_t place) {
            return parts.begin() + static_cast<std::ptrdiff_t>(place);
        };
        writer.writePage({at(first), at(end)}, page, pages);
    }
    return writer.take();
}

}  // namespace host
