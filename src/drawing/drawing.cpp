#include "drawing/drawing.h"

#include <algorithm>

#include "drawing/dictionaries.h"
#include "drawing/dxf/loader.h"
#include "drawing/dxf/record_reader.h"
#include "drawing/dxf/record_tags.h"
#include "drawing/references.h"
#include "drawing/store.h"

namespace velmar::drawing {

Drawing::Drawing(std::unique_ptr<Store> store) : store_(std::move(store)) {}
Drawing::Drawing(Drawing&&) noexcept = default;
Drawing& Drawing::operator=(Drawing&&) noexcept = default;
Drawing::~Drawing() = default;

namespace {

std::unique_ptr<Store> loaded(Source source, std::filesystem::path path, std::string name) {
  auto store = std::make_unique<Store>();
  store->path = std::move(path);
  store->name = std::move(name);
  store->source = std::move(source);
  store->stamp = store->source.stamp();
  dxf::load(*store);
  store->source_count = store->records.size();
  store->handle_seed = store->next_handle;
  return store;
}

}  // namespace

Drawing Drawing::open(const std::filesystem::path& path) {
  return Drawing(loaded(Source::map(path), path, path.string()));
}

Drawing Drawing::read(std::string bytes, std::string name) {
  return Drawing(loaded(Source::of(std::move(bytes)), {}, std::move(name)));
}

const std::filesystem::path& Drawing::path() const { return store_->path; }
std::string_view Drawing::version() const { return store_->format.version; }
bool Drawing::is_binary() const { return store_->format.binary; }
std::string Drawing::code_page() const { return store_->format.code_page_name; }
std::size_t Drawing::size() const { return store_->records.size(); }
const std::vector<Warning>& Drawing::warnings() const { return store_->warnings; }

std::optional<std::string> Drawing::header(std::string_view name) const {
  if (store_->landmarks.header == RecordId::none) return std::nullopt;
  const dxf::RecordReader reader(store_->bytes(store_->landmarks.header), store_->format);
  std::string value = reader.variable(name);
  if (value.empty()) return std::nullopt;
  return value;
}

HeaderVariables Drawing::header_variables() const {
  if (store_->landmarks.header == RecordId::none) return {};
  HeaderVariables all =
      dxf::RecordReader(store_->bytes(store_->landmarks.header), store_->format).variables();
  std::erase_if(all, [](const auto& variable) { return variable.second.empty(); });
  return all;
}

std::optional<Box> Drawing::header_extents() const { return header_box("$EXTMIN", "$EXTMAX"); }

std::optional<Box> Drawing::header_box(std::string_view low_name,
                                       std::string_view high_name) const {
  if (store_->landmarks.header == RecordId::none) return std::nullopt;
  const dxf::RecordReader reader(store_->bytes(store_->landmarks.header), store_->format);
  const auto low = reader.point_variable(low_name);
  const auto high = reader.point_variable(high_name);
  if (!low || !high) return std::nullopt;
  const Box box{*low, *high};
  if (box.empty()) return std::nullopt;
  return box;
}

const std::vector<Layer>& Drawing::layers() const { return store_->layers; }
std::optional<LayerId> Drawing::find_layer(std::string_view name) const {
  return store_->find_layer(name);
}
const std::vector<Space>& Drawing::spaces() const { return store_->spaces; }
std::optional<SpaceId> Drawing::find_space(std::string_view name) const {
  return store_->find_space(name);
}
const std::vector<Layout>& Drawing::layouts() const { return store_->layouts; }

const Record& Drawing::record(RecordId id) const { return store_->at(id); }
std::string_view Drawing::kind_name(RecordId id) const {
  return store_->kind_name(store_->at(id).kind);
}
std::uint64_t Drawing::edition() const { return store_->edition; }

void Drawing::prefetch(RecordId id) const {
  constexpr std::size_t cache_line = 64, most = 4 * cache_line;  // a text is not much longer
  const std::string_view bytes = store_->bytes(id);
  for (std::size_t i = 0; i < std::min(bytes.size(), most); i += cache_line) {
    __builtin_prefetch(bytes.data() + i);
  }
}

RecordId Drawing::find(Handle handle) const { return store_->find(handle); }

std::vector<RecordId> Drawing::entities(SpaceId space) const {
  std::vector<RecordId> alive = store_->spaces.at(index(space)).entities;
  if (store_->any_erased) {
    std::erase_if(alive, [this](RecordId id) { return store_->at(id).is(Record::erased); });
  }
  return alive;
}

std::size_t Drawing::entity_count(SpaceId space) const {
  std::size_t count = 0;
  for (const RecordId id : store_->spaces.at(index(space)).entities) {
    if (!store_->at(id).is(Record::erased)) ++count;
  }
  return count;
}

std::vector<RecordId> Drawing::parts(RecordId id) const {
  std::vector<RecordId> parts;
  for (RecordId part = store_->next(id); index(part) < store_->records.size();
       part = store_->next(part)) {
    const Record& record = store_->at(part);
    if (!record.is(Record::part) || record.kind == Kind::seqend) break;
    if (!record.is(Record::erased)) parts.push_back(part);
  }
  return parts;
}

bool Drawing::has_extension_dictionary(RecordId id) const {
  return extension_dictionary(id) != RecordId::none;
}

RecordId Drawing::extension_dictionary(RecordId id) const {
  const dxf::RecordTags record(store_->bytes(id), store_->format);
  bool is_it = false;
  for (const dxf::Tag& tag : record.tags()) {
    if (tag.code == 102) is_it = record.text(tag) == "{ACAD_XDICTIONARY";
    if (!is_it || reference_of(tag.code) == Reference::none) continue;
    const RecordId found = find(parse_handle(record.text(tag)));
    const bool is_there = found != RecordId::none && !store_->at(found).is(Record::erased);
    return is_there ? found : RecordId::none;
  }
  return RecordId::none;
}

RecordId Drawing::root_dictionary() const { return drawing::root_dictionary(*store_); }
RecordId Drawing::named_dictionary(std::string_view name) const {
  return drawing::named_dictionary(*store_, name);
}
Handle Drawing::owner(RecordId id) const { return owner_named(store_->bytes(id), store_->format); }
std::vector<RecordId> Drawing::pointed_to(RecordId id) const {
  std::vector<RecordId> found;
  each_reference(store_->bytes(id), store_->format, [&](const dxf::Tag& tag, Handle handle) {
    if (tag.code != 340) return;
    if (const RecordId record = find(handle); record != RecordId::none) found.push_back(record);
  });
  return found;
}
std::vector<DictionaryEntry> Drawing::dictionary_entries(RecordId dictionary) const {
  return drawing::dictionary_entries(*store_, dictionary);
}

RecordId Drawing::whole(RecordId part) const { return store_->whole(part); }

}  // namespace velmar::drawing
