/* Hartley transform of the library of that name, which is found when the program runs. */
#include <dlfcn.h>
#include <stdio.h>

typedef int (*Transform)(const double* src, double* dst, int length, int flag);

int main(int argc, char** argv) {
    const double x[4] = {1, 2, 3, 4};
    double y[4];
    Transform hartley = NULL;
    int k;
    void* const library = argc == 2 ? dlopen(argv[1], RTLD_NOW) : NULL;
    if (library == NULL) {
        fprintf(stderr, "%s\n", argc == 2 ? dlerror() : "usage: transform LIBRARY");
        return 1;
    }
    /* The way that POSIX shows, since C has no conversion from objects to functions. */
    *(void**)&hartley = dlsym(library, "qsvgHartley_64f");
    if (hartley == NULL || hartley(x, y, 4, 8) != 0) return 1;
    for (k = 0; k < 4; ++k) printf("%g\n", y[k]);
    return dlclose(library);
}
