#pragma once

#include "DataIO/RandomAccessDataSource.h"
#include "Input.h"
#include "KLV/Value.h"

namespace Vantry { namespace Application {

/// A stretch of a file, from where that stands. The file is lent.
class FileRegion : public Input
{
public:
    FileRegion(DataIO::RandomAccessDataSource & file, UInt64 size) : file_(file), window_(file, size) {}

    DataIO::DataSource & source() override { return window_; }
    void stepBack(UInt64 howMuch) override { file_.seek(file_.absoluteOffset() - howMuch); }

private:
    DataIO::RandomAccessDataSource & file_;
    KLV::Value window_;
};

}}
