// The plain functions of OpenSSL rather than its newer EVP ones: linked statically they pull in
// the hash alone, so that showing one song does not load a library of 5 MB for it.
#define OPENSSL_SUPPRESS_DEPRECATED
#include "cli/sha1.h"

#include <QByteArray>

#include <openssl/sha.h>

QString sha1Hex(QByteArrayView bytes)
{
    SHA_CTX context;
    SHA1_Init(&context);
    SHA1_Update(&context, bytes.data(), static_cast<size_t>(bytes.size()));
    QByteArray digest(SHA_DIGEST_LENGTH, Qt::Uninitialized);
    SHA1_Final(reinterpret_cast<unsigned char *>(digest.data()), &context);
    return QString::fromLatin1(digest.toHex());
}
