/* lumnisutil: WML decks to WBXML, WMLScript to byte code.
 *
 * Two calls, each of which takes a whole source text in memory and gives back what a WAP handset
 * receives, or a text that says what is wrong with the source and on which line:
 *
 *   WMLEncode    a WML 1.1, 1.2, 1.3 or WTA-WML 1.2 deck to WBXML (application/vnd.wap.wmlc)
 *   WMLSCompile  a WMLScript compilation unit to byte code (application/vnd.wap.wmlscriptc)
 *
 * A complete example:
 *
 *   const char* source = "extern function f() { return 1; }";
 *   char* bytes = NULL;
 *   char* error = NULL;
 *   unsigned short length = 0;
 *   if (WMLSCompile(source, (int)strlen(source), &bytes, &length, &error) == 0) {
 *       fwrite(bytes, 1, length, file);
 *   } else if (error != NULL) {
 *       fputs(error, stderr);
 *   }
 *   free(bytes);
 *   free(error);
 *
 * Conventions of both calls:
 *
 * 1. Source. `source` points to `sourceLength` bytes. It need not be terminated, and NUL bytes in
 *    it are content. A deck is taken as ISO-8859-1, a script as UTF-8.
 * 2. Result code. 0: success. 1: failure. There are no other values.
 * 3. Result. On success *result points to *resultLength bytes, 1 to 65534 of them, in a block
 *    from malloc that the caller releases with free. A larger result is a failure; its block has
 *    been stored in *result all the same and is the caller's to release. So is the block, of no
 *    use, that a refused deck leaves there. *resultLength is written on success alone.
 * 4. Error text. Written on failure alone, and not on every failure: a result of the wrong size,
 *    lack of memory for it, and an empty deck, of which a line on standard output tells, have no
 *    text. An out-parameter that is not written keeps what the caller left in it, so set all three
 *    before the call. errorText alone may be null: then no text is given. A call with a null result
 *    or resultLength fails and writes nothing.
 *    WMLSCompile: NUL-terminated, from malloc, the caller releases it with free. When there is no
 *    memory for the text, *errorText becomes null.
 *    WMLEncode: NUL-terminated, belongs to the library and is readable until the same thread's
 *    next call of WMLEncode. The caller must not release it.
 * 5. Threads. Any number of calls may run at once on as many threads. They start no thread of their
 *    own, and nothing of one call reaches another: what stays are tables that are made once, and
 *    caches and counters on which no result depends. None is freed, so that a call may come while
 *    the process ends.
 * 6. Exceptions. None leaves a call, whatever the source.
 */
#ifndef LUMNISUTIL_H
#define LUMNISUTIL_H

#if defined(__GNUC__)
#define LUMNISUTIL_EXPORT __attribute__((visibility("default")))
#else
#define LUMNISUTIL_EXPORT
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* Encodes a WML deck to WBXML. The deck is validated against the DTD of its public identifier. The
 * error text of a faulty deck reads "MESSAGE  (before or at line: N)\n", lines counted from 1. */
LUMNISUTIL_EXPORT int WMLEncode(const char* source, int sourceLength, char** result,
                                unsigned short* resultLength, char** errorText);

/* Compiles a WMLScript compilation unit to byte code, with the optimizer on. The error text reads
 * "\nCompilation error: \nError at line: N. \r\nMESSAGE\n", lines counted from 1; a fault that is
 * not the script's has the heading "Other error: \n" in the place of the first and no line. */
LUMNISUTIL_EXPORT int WMLSCompile(const char* source, int sourceLength, char** result,
                                  unsigned short* resultLength, char** errorText);

#ifdef __cplusplus
}
#endif

#endif
