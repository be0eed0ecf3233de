#pragma once

namespace Vantry { namespace Application {

class FileLayout;
class Warnings;

/// Compares what partition packs and the random index pack say with where the
/// partitions are, and tells what is missing. The layout has a partition.
void findLayoutFaults(FileLayout const & layout, Warnings & warnings);

}}
