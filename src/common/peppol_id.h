#pragma once
// Identifiers of the electronic invoice network: a Peppol ID ("0188:7000012050002", the
// scheme of the electronic address, a colon and the address) and the corporate number
// (法人番号, thirteen digits whose first is a check digit).

#include <QString>
#include <optional>

namespace est {

struct PeppolId
{
    QString scheme;   // four digits from the electronic address scheme list
    QString value;
};

// The text as typed, tidied: blanks removed, full-width letters, digits and colon made
// half-width. Letters keep their case (an address may hold letters).
QString normalizePeppolId(const QString &text);
// The scheme and address of a tidied text, nothing when it is not "<scheme>:<address>"
// with a scheme of the list (0188 with a corporate number, 0221 with "T" and 13 digits).
std::optional<PeppolId> parsePeppolId(const QString &text);
// Why a typed Peppol ID is refused, nothing when it can be stored (empty is allowed).
std::optional<QString> checkPeppolId(const QString &text);

// Whether the scheme is one of the electronic address schemes the network accepts.
bool isElectronicAddressScheme(const QString &scheme);

// Thirteen half-width digits with a correct check digit.
bool isCorporateNumber(const QString &text);
// Full-width digits made half-width, blanks and hyphens removed.
QString normalizeCorporateNumber(const QString &text);
// Why a typed corporate number is refused, nothing when it can be stored (empty is allowed).
std::optional<QString> checkCorporateNumber(const QString &text);

} // namespace est
