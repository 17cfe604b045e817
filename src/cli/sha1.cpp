// The plain functions of OpenSSL rather than its newer EVP ones: linked statically they pull in
// the hash alone, so that showing one song does not load a library of 5 MB for it.
#define OPENSSL_SUPPRESS_DEPRECATED
#include "cli/sha1.h"

#include <QByteArray>

#include <openssl/sha.h>

QString sha1Hex(QByteArrayView bytes)
{
    QByteArray digest(SHA_DIGEST_LENGTH, Qt::Uninitialized);
    SHA1(reinterpret_cast<const unsigned char *>(bytes.data()), static_cast<size_t>(bytes.size()),
         reinterpret_cast<unsigned char *>(digest.data()));
    return QString::fromLatin1(digest.toHex());
}
