// Parsing and writing one record, against a bare pass of the XML library and against memcpy.
#include <libxml/parser.h>
#include <libxml/parserInternals.h>

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

void onStart(void* user, const xmlChar*, const xmlChar*, const xmlChar*, int, const xmlChar**, int,
             int, const xmlChar**) {
    ++*static_cast<long*>(user);
}
void onEnd(void* user, const xmlChar*, const xmlChar*, const xmlChar*) {
    ++*static_cast<long*>(user);
}
void onCharacters(void* user, const xmlChar*, int length) {
    *static_cast<long*>(user) += length;
}

/// A pass that only counts, with a context that is kept between passes.
void bareParse(benchmark::State& state) {
    const std::string text = sessionText();
    xmlParserCtxtPtr context = xmlNewParserCtxt();
    *context->sax = {};
    context->sax->initialized = XML_SAX2_MAGIC;
    context->sax->startElementNs = onStart;
    context->sax->endElementNs = onEnd;
    context->sax->characters = onCharacters;
    context->sax->ignorableWhitespace = onCharacters;
    long seen = 0;
    context->userData = &seen;
    for (auto _ : state) {
        xmlCtxtReadMemory(context, text.data(), static_cast<int>(text.size()), nullptr, nullptr,
                          XML_PARSE_NOENT | XML_PARSE_NONET | XML_PARSE_IGNORE_ENC);
        if (!context->wellFormed) state.SkipWithError("the text is not well-formed");
    }
    benchmark::DoNotOptimize(seen);
    xmlFreeParserCtxt(context);
}

void parse(benchmark::State& state) {
    Document document;
    if (!document.loadXML(sessionText())) state.SkipWithError("the text is not well-formed");
    Dataset record;
    for (auto _ : state) record.Load(document, 0);
    if (record.Rows().size() != 26) state.SkipWithError("the record has not 26 rows");
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
    figure("write-record-26-rows", benchmark::kMicrosecond, write, copy);
}

}  // namespace wynconfig::bench
