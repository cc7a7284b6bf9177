/*
 * Linked into a copy of the program with -Wl,--wrap=__cxa_atexit: every static object with a
 * destructor announces itself there when its construction is complete. Each is logged by its
 * address, as "+ ADDRESS" when it has been built and as "- ADDRESS" when it is being destroyed.
 */

#include <cstdio>

namespace {

struct static_object {
    void (*destroy)(void*);
    void* address;
};

static_object objects[64];
int object_count = 0;

void destroy_logged(void* argument) {
    const static_object& object = *static_cast<static_object*>(argument);
    std::fprintf(stderr, "- %p\n", object.address);
    object.destroy(object.address);
}

} // namespace

extern "C" int __real___cxa_atexit(void (*destroy)(void*), void* object, void* dso);
extern "C" int __wrap___cxa_atexit(void (*destroy)(void*), void* object, void* dso);

extern "C" int __wrap___cxa_atexit(void (*destroy)(void*), void* object, void* dso) {
    std::fprintf(stderr, "+ %p\n", object);
    static_object& entry = objects[object_count++];
    entry = {destroy, object};
    return __real___cxa_atexit(destroy_logged, &entry, dso);
}
