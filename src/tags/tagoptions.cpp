#include "tags/tagoptions.h"

InPlaceFile::Outcome writeContents(InPlaceFile &file, const FileContents &contents,
                                   const WriteOptions &options)
{
    if (options.replaced)
        *options.replaced = ReplacedBytes::by(contents, file);
    return file.replaceContents(contents, options.keepTime, options.keptJournal);
}
