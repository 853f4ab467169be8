/* Stands in for iconv, which Windows lacks, while the libraries that read scanned pages are built: PDF pages are painted without
   it, and the codes of letters are digits, which need no conversion. Each conversion is refused. */
#pragma once
#include <errno.h>
#include <stddef.h>

typedef void *iconv_t;

static inline iconv_t iconv_open(const char *to, const char *from)
{
    (void)to;
    (void)from;
    errno = EINVAL;
    return (iconv_t)-1;
}
static inline size_t iconv(iconv_t conversion, char **in, size_t *inLeft, char **out, size_t *outLeft)
{
    (void)conversion;
    (void)in;
    (void)inLeft;
    (void)out;
    (void)outLeft;
    errno = EBADF;
    return (size_t)-1;
}
static inline int iconv_close(iconv_t conversion)
{
    (void)conversion;
    return 0;
}
