/* What the library itself makes of a deck on standard input: its bytes, or its error text. */
#include <stdio.h>
#include <stdlib.h>

#include "lumnisutil.h"

int main(void) {
    static char source[1 << 20];
    const size_t length = fread(source, 1, sizeof source, stdin);
    char* result = NULL;
    char* error = NULL;
    unsigned short size = 0;
    const int status = WMLEncode(source, (int)length, &result, &size, &error);
    if (status == 0) {
        fwrite(result, 1, size, stdout);
    } else if (error != NULL) {
        fputs(error, stderr);
    }
    free(result);
    return status;
}
