#pragma once

#include <string>

#include "drawing/geometry/point.h"

/// The words of an entity's field list. A list is a function template `fields(visitor, entity)`
/// that names each field once: automation name, group code, where it is kept and the value that
/// need not be written. A visitor is a small struct per use: the reader and the writer of records,
/// the property get and put of the host.
///
/// A visitor has: operator()(name, code, value) and (name, code, value, unless) for value types
/// double, int32, string, Point, Ocs, Degrees and Chunked; subclass(name): the fields that follow
/// stand in the next subclass of that name; any_subclass(): in the next one, whatever its name;
/// count(code, list): how many there are; vertices(list): the repeated groups of a lightweight
/// polyline; repeated(code, list): all groups of that code, numbers or points; row(code, list): a
/// count with that code and so many elements behind it, each described by its `tags(row, element)`;
/// absent({codes}): what an entity of this sort has not; embedded_object(): true where what follows
/// is to be brought to the values too in an object embedded in the subclass;
/// long_texts(code, more, list): texts that may go on in groups `more`; first_chunk(code, data):
/// the first piece of binary data, which keeps its size.
///
/// A row, whose group codes mean something by their order alone, has: operator()(code, value) and
/// (code, value, unless), which need not be there, and with `true` behind is put into rows written
/// anew all the same; plane(code, point): x and y alone; count(code,
/// list), also with may_be_missing; list(code, list): the count and then the elements;
/// alternative(code, variant): which one, from 1 on, and then its tags; present(flag, code,
/// {codes}): whether that code comes next and one of those after its value.
namespace velmar::drawing {

/// A field that is left out of the file when it has this value.
template <class T>
struct unless {
  T value;
};
template <class T>
unless(T) -> unless<T>;

/// A count that older files do not have.
struct MayBeMissing {};
inline constexpr MayBeMissing may_be_missing;

/// A point kept in the object coordinate system of the entity's normal.
struct Ocs {
  Point& point;
};
inline Ocs ocs(Point& point) { return {point}; }

/// An angle kept in radians that the file holds in degrees.
struct Degrees {
  double& radians;
};
inline Degrees degrees(double& radians) { return {radians}; }

/// A long text. In the file it stands in pieces of at most 250 bytes: all but the last one under
/// the group code `before`, the last one under the field's own.
struct Chunked {
  std::string& text;
  int before;
};
inline Chunked chunked(std::string& text, int before) { return {text, before}; }

}  // namespace velmar::drawing
