#include "store/recordset.h"

#include "base/runtime_error.h"
#include "base/text.h"
#include "store/recordset_state.h"

namespace varnhold::store {
namespace {

bool isSelect(std::string_view source) {
  constexpr std::string_view kSelect = "SELECT";
  const std::size_t begin = source.find_first_not_of(" \t\r\n");
  return begin != std::string_view::npos && equalsIgnoringCase(source.substr(begin, kSelect.size()), kSelect);
}

char lowered(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + 32) : letter;
}

/// Column names are nearly always ASCII, and are looked up for every cell.
bool isSameName(std::string_view left, std::string_view right) {
  if (left.size() != right.size()) return false;
  for (std::size_t i = 0; i < left.size(); ++i) {
    if (lowered(left[i]) != lowered(right[i])) return false;
  }
  return true;
}

}  // namespace

Recordset::Recordset() = default;
Recordset::~Recordset() = default;

Recordset::State& Recordset::opened() const {
  if (!state_) throw RuntimeError(kObjectClosed, "The set of rows is closed.");
  if (state_->connection.expired())
    throw RuntimeError(kObjectClosed, "The connection to the inventory is closed.");
  return *state_;
}

void Recordset::Open(const std::string& source, Connection& connection, CursorType, LockType lock, int) {
  auto state = std::make_unique<State>();
  state->connection = connection.session().weak_from_this();
  state->source = source;
  state->isTable = !isSelect(source);
  state->lock = lock;
  state_ = std::move(state);
}

void Recordset::Close() noexcept {
  state_.reset();
}

void Recordset::setFilter(std::string_view condition) {
  State& state = opened();
  state.writeEdit();
  state.filter = condition;
  state.forget();
}

void Recordset::Requery() {
  State& state = opened();
  state.writeEdit();
  state.forget();
}

bool Recordset::Bof() {
  State& state = opened();
  state.ensureRows();
  return state.rows.size == state.deletedCount && state.place == state.rows.size;
}

bool Recordset::Eof() {
  State& state = opened();
  state.ensureRows();
  return state.place == state.rows.size;
}

void Recordset::MoveFirst() {
  State& state = opened();
  state.writeEdit();
  if (!state.asked) state.forget();
  state.ensureRows();
  state.goTo(state.behindDeleted(0));
  state.requireCurrentRow();
}

void Recordset::MoveNext() {
  State& state = opened();
  state.writeEdit();
  state.ensureRows();
  if (state.place == state.rows.size) throw RuntimeError(kNoCurrentRow, "The set is behind its last row.");
  state.goTo(state.behindDeleted(state.place + 1));
}

Recordset::Field Recordset::Fields(std::string_view name) {
  State& state = opened();
  if (state.edit == State::Edit::None) state.ensureRows();
  const auto& columns = state.rows.columns;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (isSameName(columns[i].name, name)) return {*this, i};
  }
  throw RuntimeError(kItemNotFound,
                     "There is no column '" + std::string(name) + "' in " + state.source + ".");
}

void Recordset::AddNew() {
  State& state = opened();
  state.requireWritable();
  state.writeEdit();
  state.ensureColumns();
  state.beginEdit(State::Edit::Add);
}

void Recordset::Update() {
  opened().writeEdit();
}

void Recordset::Delete() {
  opened().deleteRow();
}

const Value& Recordset::Field::value() const {
  return rows_.opened().cell(column_);
}

void Recordset::Field::setValue(const Value& value) {
  rows_.opened().setCell(column_, value);
}

}  // namespace varnhold::store
