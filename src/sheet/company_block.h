#pragma once
// The own-company block: fourteen texts kept in "temp\kdata.txt" so that start-up does not
// need the company database. Lines in order (index 0 to 13): record number, comment line,
// company name, address, telephone, fax, bank, bank branch, branch number ("000"), account
// type, account number, tax rate, account holder, print-account flag.

#include <QString>
#include <QStringList>

namespace est::sheet {

inline constexpr int kCompanyItems = 14;

enum CompanyItem {
    CompanyRecordNo = 0,
    CompanyComment,
    CompanyName,
    CompanyAddress,
    CompanyTel,
    CompanyFax,
    CompanyBank,
    CompanyBankBranch,
    CompanyBranchNo,
    CompanyAccountType,
    CompanyAccountNo,
    CompanyTaxRate,
    CompanyAccountHolder,
    CompanyPrintAccount,
};

// Full path of the company text file below the application folder.
QString companyFilePath(const QString &appFolder);

// The fourteen lines as the file holds them, each ended by CR LF (UTF-8).
QByteArray companyFileBytes(const QStringList &block);

// Reads the file item by item as comma-delimited input fields, the way the block has always
// been read: a comma inside a value splits it into two items (pushing the later lines down),
// a value in quotation marks loses its quotes and whatever follows them on that line, blanks
// before and after an unquoted value are dropped. Items the file does not reach stay empty.
QStringList parseCompanyFile(const QByteArray &bytes);

struct CompanyFileRead
{
    bool exists = false;
    QStringList block = QStringList(kCompanyItems);
    QString error;  // the file is there but could not be read
};
CompanyFileRead readCompanyBlock(const QString &path);

// Replaces the file with the block. The new text goes to a temporary file that is renamed
// over the old one, so a failed write reports an error and leaves the previous file as it was.
// Returns an error text, empty on success.
QString writeCompanyBlock(const QString &path, const QStringList &block);

// Branch number as line 9 holds it: a number with at least three digits ("7" -> "007");
// an empty text stays empty and a text that is not a number stays as it is.
QString formatBranchNumber(const QString &text);

} // namespace est::sheet
