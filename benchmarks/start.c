/* How long it takes and how much memory, from nothing to the end of the first init of a store.
 *   start ROOT TEXTS LIBRARY [LIBRARY]   prints milliseconds and KiB; with the second library, the
 *                                        desktop view's, a view is made as well */
#include <dlfcn.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <time.h>

static void* find(void* library, const char* name) {
    void* const found = dlsym(library, name);
    if (!found) {
        fprintf(stderr, "%s\n", dlerror());
        exit(1);
    }
    return found;
}

static void* load(const char* path) {
    void* const library = dlopen(path, RTLD_NOW | RTLD_GLOBAL);
    if (!library) {
        fprintf(stderr, "%s\n", dlerror());
        exit(1);
    }
    return library;
}

static double milliseconds(void) {
    struct timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    return (double)now.tv_sec * 1e3 + (double)now.tv_nsec / 1e6;
}

static long resident_kib(void) {
    char line[256];
    long kib = 0;
    FILE* const status = fopen("/proc/self/status", "r");
    while (status && fgets(line, sizeof line, status))
        if (strncmp(line, "VmRSS:", 6) == 0) kib = atol(line + 6);
    if (status) fclose(status);
    return kib;
}

int main(int count, char* arguments[]) {
    if (count < 4) return 2;
    const long kib = resident_kib();
    const double begin = milliseconds();
    void* const library = load(arguments[3]);
    int32_t (*use_bundle)(const char*, const char*) = find(library, "wyn_use_bundle");
    int32_t (*init)(const char*) = find(library, "wyn_init");
    if (count > 4) {
        int32_t (*install)(void) = find(load(arguments[4]), "wyn_install_qt_view");
        if (install()) return 1;
    }
    if (use_bundle(arguments[2], "en") || init(arguments[1])) return 1;
    printf("%.2f %ld\n", milliseconds() - begin, resident_kib() - kib);
    return 0;
}
