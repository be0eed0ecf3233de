#include "DataIO/File/FileDataSource.h"

#include "DataIO/File/ReadableFile.h"

namespace Vantry { namespace DataIO { namespace File {

class FileDataSource::Impl : public ReadableFile
{
public:
    using ReadableFile::ReadableFile;
};

FileDataSource::FileDataSource(unsigned short const * name, int bufferSize) : impl_(new Impl(name, bufferSize)) {}

FileDataSource::~FileDataSource()
{
    delete impl_;
}

UInt64 FileDataSource::read(unsigned char * destination, UInt64 howMuch)
{
    return impl_->read(destination, howMuch);
}

UInt64 FileDataSource::skip(UInt64 howMuch)
{
    return impl_->skip(howMuch);
}

UInt64 FileDataSource::seek(UInt64 position)
{
    return impl_->seek(position);
}

void FileDataSource::discard()
{
    impl_->skip(impl_->remaining());
}

UInt64 FileDataSource::absoluteOffset() const
{
    return impl_->absoluteOffset();
}

UInt64 FileDataSource::remaining() const
{
    return impl_->remaining();
}

bool FileDataSource::endOfStream() const
{
    return impl_->remaining() == 0;
}

}}}
