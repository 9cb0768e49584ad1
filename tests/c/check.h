// What the tests of the C interface have in common.
#pragma once

#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "wynconfig/c.h"

// How many expectations were not met.
extern int faults;
// A store of the case, made and with its trailing separator.
extern char root[];
// The texts of the component.
extern const char* bundle_folder;

static inline void expect(int met, const char* file, int line, const char* what) {
    if (met) return;
    ++faults;
    fprintf(stderr, "%s:%d: not so: %s\n", file, line, what);
}
#define EXPECT(condition) expect(condition, __FILE__, __LINE__, #condition)

// The call gives this number.
static inline void expect_status(int32_t wanted, int32_t got, const char* file, int line,
                                 const char* what) {
    wyn_error error = WYN_STRUCT(wyn_error);
    if (wanted == got) return;
    ++faults;
    wyn_last_error(&error);
    fprintf(stderr, "%s:%d: %s gave %d and not %d; the last failure is %d in %s: %s\n", file, line,
            what, (int)got, (int)wanted, (int)error.number, error.function, error.description);
}
#define OK(call) expect_status(WYN_OK, call, __FILE__, __LINE__, #call)
#define FAILS(number, call) expect_status(number, call, __FILE__, __LINE__, #call)

// The call gives this text by its argument `&text`.
static inline void expect_text(const char* wanted, char* got, const char* file, int line,
                               const char* what) {
    if (!got || strcmp(wanted, got) != 0) {
        ++faults;
        fprintf(stderr, "%s:%d: %s gave \"%s\" and not \"%s\"\n", file, line, what,
                got ? got : "(none)", wanted);
    }
    wyn_free(got);
}
#define GIVES(wanted, call)                                   \
    do {                                                      \
        char* text = NULL;                                    \
        OK(call);                                             \
        expect_text(wanted, text, __FILE__, __LINE__, #call); \
    } while (0)

// The call fails with this number and leaves its argument `&text` alone.
#define GIVES_NOTHING(number, call) \
    do {                            \
        char* text = root;          \
        FAILS(number, call);        \
        EXPECT(text == root);       \
    } while (0)

// The list that the call gives by its argument `&list` has these texts, joined by "|".
void expect_list(const char* wanted, wyn_list* list, const char* file, int line, const char* what);
#define LISTS(wanted, call)                                   \
    do {                                                      \
        wyn_list* list = NULL;                                \
        OK(call);                                             \
        expect_list(wanted, list, __FILE__, __LINE__, #call); \
    } while (0)

// A control of a form by its name.
static inline wyn_control* find(wyn_form* form, const char* name) {
    wyn_control* control = NULL;
    OK(wyn_find(form, name, &control));
    return control;
}

// Writes the item of a session or part format with these keys and values, up to NULL.
void save_item(int32_t kind, const char* name, const char* const* rows);
// A session that the session dialog confirms, with the part format PLAIN.
void save_session(const char* name);
// A path below the store. The text is overwritten by the next call but one.
const char* below(const char* name);

// The cases, which main.c runs; those of the desktop view in a program of their own.
void library_cases(void);
void store_cases(void);
void operation_cases(void);
void view_cases(void);
void form_cases(void);
void kit_cases(void);
void qt_cases(void);
