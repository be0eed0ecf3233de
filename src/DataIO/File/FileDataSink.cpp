#include "DataIO/File/FileDataSink.h"

#include "DataIO/File/WritableFile.h"

namespace Vantry { namespace DataIO { namespace File {

class FileDataSink::Impl : public WritableFile
{
public:
    using WritableFile::WritableFile;
};

FileDataSink::FileDataSink(unsigned short const * name, bool append, int bufferSize) :
    impl_(new Impl(name, append, bufferSize))
{
}

FileDataSink::~FileDataSink()
{
    delete impl_;
}

void FileDataSink::write(unsigned char const * source, UInt64 howMuch)
{
    impl_->write(source, howMuch);
}

UInt64 FileDataSink::seek(UInt64 position)
{
    return impl_->seek(position);
}

UInt64 FileDataSink::absoluteOffset() const
{
    return impl_->absoluteOffset();
}

void FileDataSink::flush()
{
    impl_->flush();
}

}}}
