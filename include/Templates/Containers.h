#pragma once

#include "Platform/Allocator.h"
#include "Platform/WideTraits.h"

#include <functional>
#include <list>
#include <map>
#include <string>
#include <utility>
#include <vector>

/// The standard containers on the allocator of the library, so that they may
/// be filled in one module and emptied in another.
namespace Vantry { namespace Templates {

template <class T>
using vector = std::vector<T, Platform::Allocator<T>>;

template <class T>
using list = std::list<T, Platform::Allocator<T>>;

template <class Key, class T, class Compare = std::less<Key>>
using map = std::map<Key, T, Compare, Platform::Allocator<std::pair<Key const, T>>>;

template <class Key, class T, class Compare = std::less<Key>>
using multimap = std::multimap<Key, T, Compare, Platform::Allocator<std::pair<Key const, T>>>;

template <class Char, class Traits = std::char_traits<Char>>
using basic_string = std::basic_string<Char, Traits, Platform::Allocator<Char>>;

using std::pair;

/// Narrow text, UTF-8 where it comes from or goes to the system.
using string = basic_string<char>;

/// Wide text: UTF-16 in 16-bit elements.
using wstring = basic_string<unsigned short, Platform::WideTraits>;

}}
