// Parsing and writing one record, against a bare pass of the XML library and against memcpy.
#include <expat.h>

#include <cstring>

#include "bench_store.h"
#include "figures.h"
#include "wynconfig/dataset.h"

namespace wynconfig::bench {

namespace {

/// The text of a session of 26 rows.
std::string sessionText() {
    Dataset record;
    fillSession(record, "DEALER ORDER DESK", "TAB SEPARATED");
    Document document;
    record.Save(document);
    return document.xml();
}

void onStart(void*, const char*, const char**) {}
void onEnd(void*, const char*) {}
void onCharacters(void*, const char*, int) {}

/// A pass that makes nothing of what it reads, by a parser that is kept between passes. It is told
/// the encoding and a salt, which it would ask the system for each time.
void bareParse(benchmark::State& state) {
    const std::string text = sessionText();
    const XML_Parser parser = XML_ParserCreate(nullptr);
    for (auto _ : state) {
        XML_ParserReset(parser, nullptr);
        XML_SetEncoding(parser, "UTF-8");
        XML_SetHashSalt(parser, 1);
        XML_SetElementHandler(parser, onStart, onEnd);
        XML_SetCharacterDataHandler(parser, onCharacters);
        if (XML_Parse(parser, text.data(), static_cast<int>(text.size()), XML_TRUE) !=
            XML_STATUS_OK)
            state.SkipWithError("the text is not well-formed");
    }
    XML_ParserFree(parser);
}

void parseText(benchmark::State& state, const std::string& text) {
    Document document;
    if (!document.loadXML(text)) state.SkipWithError("the text is not well-formed");
    Dataset record;
    for (auto _ : state) record.Load(document, 0);
    if (record.Rows().size() != 26) state.SkipWithError("the record has not 26 rows");
}

void parse(benchmark::State& state) {
    parseText(state, sessionText());
}

/// The same session as another program may have written it, without a declaration.
void parseForeign(benchmark::State& state) {
    parseText(state, " " + sessionText().substr(sessionText().find("<dataset")));
}

void write(benchmark::State& state) {
    Dataset record;
    fillSession(record, "DEALER ORDER DESK", "TAB SEPARATED");
    Document document;
    for (auto _ : state) {
        record.Save(document);
        benchmark::DoNotOptimize(document.xml().data());
    }
}

void copy(benchmark::State& state) {
    const std::string text = sessionText();
    std::string target(text.size(), ' ');
    for (auto _ : state) {
        std::memcpy(target.data(), text.data(), text.size());
        benchmark::DoNotOptimize(target.data());
        benchmark::ClobberMemory();
    }
}

}  // namespace

void registerRecordFigures() {
    figure("parse-record-26-rows", benchmark::kMicrosecond, parse, bareParse);
    figure("parse-foreign-record-26-rows", benchmark::kMicrosecond, parseForeign, bareParse);
    figure("write-record-26-rows", benchmark::kMicrosecond, write, copy);
}

}  // namespace wynconfig::bench
