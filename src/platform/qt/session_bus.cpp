#include "platform/qt/session_bus.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>
#include <QDBusVariant>
#include <QVariantMap>

#include "base/start_thread.h"
#include "platform/posix/bus_address.h"
#include "platform/qt/conversions.h"

namespace lumidex {
namespace {

QVariant ToBus(const BusValue& value);

QVariant Bare(const BusValue& value) {
  struct Visitor {
    QVariant operator()(bool truth) const { return truth; }
    QVariant operator()(std::int32_t number) const { return number; }
    QVariant operator()(std::uint32_t number) const { return number; }
    QVariant operator()(double number) const { return number; }
    QVariant operator()(const std::string& text) const { return ToQt(text); }
    QVariant operator()(const BusFile& file) const {
      return QVariant::fromValue(QDBusUnixFileDescriptor(file.descriptor));
    }
    QVariant operator()(const BusDictionary& dictionary) const {
      QVariantMap map;
      for (const auto& [key, entry] : dictionary) map.insert(ToQt(key), Bare(entry));
      return map;
    }
  };
  return std::visit(Visitor{}, value.value);
}

QVariant ToBus(const BusValue& value) {
  return value.boxed ? QVariant::fromValue(QDBusVariant(Bare(value))) : Bare(value);
}

// Nothing for a kind that nobody asks for.
std::optional<BusValue> FromBus(QVariant value) {
  while (value.metaType() == QMetaType::fromType<QDBusVariant>())
    value = value.value<QDBusVariant>().variant();
  if (value.metaType() == QMetaType::fromType<QDBusObjectPath>()) {
    return BusValue{FromQt(value.value<QDBusObjectPath>().path())};
  }
  if (value.metaType() == QMetaType::fromType<QDBusArgument>()) {
    const auto argument = value.value<QDBusArgument>();
    if (argument.currentSignature() != QStringLiteral("a{sv}")) return {};
    std::optional<BusValue> answer(std::in_place);
    auto& dictionary = answer->value.emplace<BusDictionary>();
    const auto map = qdbus_cast<QVariantMap>(argument);
    for (auto entry = map.begin(); entry != map.end(); ++entry) {
      if (auto converted = FromBus(entry.value())) dictionary[FromQt(entry.key())] = std::move(*converted);
    }
    return answer;
  }
  switch (value.typeId()) {
    case QMetaType::Bool:
      return BusValue{value.toBool()};
    case QMetaType::Int:
    case QMetaType::Short:
      return BusValue{std::int32_t{value.toInt()}};
    case QMetaType::UInt:
    case QMetaType::UShort:
    case QMetaType::UChar:
      return BusValue{std::uint32_t{value.toUInt()}};
    case QMetaType::Double:
      return BusValue{value.toDouble()};
    case QMetaType::QString:
      return BusValue{FromQt(value.toString())};
    default:
      return {};
  }
}

}  // namespace

std::optional<std::jthread> ConnectLibrary() {
  return StartThread([] { QDBusConnection::sessionBus(); });
}

QtSessionBus::QtSessionBus(Environment environment, int patience)
    : environment_(std::move(environment)),
      patience_(patience),
      name_(QStringLiteral("Lumidex%1").arg(reinterpret_cast<quintptr>(this))) {}

QtSessionBus::~QtSessionBus() {
  if (!connection_) return;
  connection_.reset();
  QDBusConnection::disconnectFromBus(name_);
}

QDBusConnection* QtSessionBus::Connected() {
  const std::lock_guard lock(mutex_);
  if (connection_ && connection_->isConnected()) return connection_.get();
  const std::string address = environment_(busVariable);
  // The library waits half a minute for a bus that takes calls and does not answer them.
  if (address.empty() || !BusAnswers(address, patience_)) return nullptr;
  if (connection_) QDBusConnection::disconnectFromBus(name_);
  connection_ = std::make_unique<QDBusConnection>(QDBusConnection::connectToBus(ToQt(address), name_));
  return connection_->isConnected() ? connection_.get() : nullptr;
}

bool QtSessionBus::HasOwner(const std::string& service) {
  const auto answer = Call(
      {"org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "NameHasOwner", {{service}}},
      patience_);
  if (!answer || answer->empty()) return false;
  const bool* owned = std::get_if<bool>(&answer->front().value);
  return owned && *owned;
}

std::optional<std::vector<BusValue>> QtSessionBus::Call(const BusCall& call, int millisecondsAtMost) {
  QDBusConnection* connection = Connected();
  if (!connection) return {};
  QDBusMessage message = QDBusMessage::createMethodCall(ToQt(call.service), ToQt(call.path),
                                                        ToQt(call.interface), ToQt(call.method));
  for (const BusValue& argument : call.arguments) message << ToBus(argument);
  const QDBusMessage reply = connection->call(message, QDBus::Block, millisecondsAtMost);
  if (reply.type() != QDBusMessage::ReplyMessage) return {};
  std::vector<BusValue> answer;
  for (const QVariant& value : reply.arguments()) {
    if (auto converted = FromBus(value)) answer.push_back(std::move(*converted));
  }
  return answer;
}

}  // namespace lumidex
