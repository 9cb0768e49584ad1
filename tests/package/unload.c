// A host's plugin: the component is loaded, used by a thread, and unloaded, three times over.
//   unload LIBRARY TEXTS
#include <dlfcn.h>
#include <pthread.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <wynconfig/c.h>

static void* library;
static const char* texts;

static void* find(const char* name) {
    void* const found = dlsym(library, name);
    if (!found) {
        fprintf(stderr, "%s\n", dlerror());
        exit(1);
    }
    return found;
}

// Looks for a session in a store that is not there, which no view shows.
static void* use(void* unused) {
    int32_t (*use_bundle)(const char*, const char*) = find("wyn_use_bundle");
    int32_t (*show)(const char*, char**, int32_t*) = find("wyn_showMORAMConfigDlg");
    int32_t (*install)(wyn_user**) = find("wyn_install_scripted_view");
    int32_t (*parse)(const char*, wyn_record**) = find("wyn_record_parse");
    void (*release)(char*) = find("wyn_free");
    char* name = NULL;
    wyn_record* record = NULL;
    int32_t result = 7;
    if (use_bundle(texts, "de") || install(NULL) || show("a", &name, &result) || result != 1 ||
        parse("<a/>", &record) != WYN_ERROR_RECORD) {
        fprintf(stderr, "it did not work\n");
        exit(1);
    }
    release(name);
    return unused;
}

static int is_loaded(void) {
    char line[4096];
    int found = 0;
    FILE* const maps = fopen("/proc/self/maps", "r");
    while (maps && fgets(line, sizeof line, maps)) found |= strstr(line, "libwynconfig") != NULL;
    if (maps) fclose(maps);
    return found;
}

int main(int count, char* arguments[]) {
    if (count != 3) return 2;
    texts = arguments[2];
    for (int i = 0; i < 3; ++i) {
        pthread_t thread;
        library = dlopen(arguments[1], RTLD_NOW | RTLD_LOCAL);
        if (!library) {
            fprintf(stderr, "%s\n", dlerror());
            return 1;
        }
        if (pthread_create(&thread, NULL, use, NULL) || pthread_join(thread, NULL)) return 1;
        if (!is_loaded() || dlclose(library) || is_loaded()) {
            fprintf(stderr, "it stays\n");
            return 1;
        }
    }
    return 0;
}
