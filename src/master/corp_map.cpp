#include "master/corp_map.h"

#include "common/binary_literal.h"

#include <memory>

namespace inin {

namespace {

/// The file that the map component writes its picture to, relative to the current folder.
constexpr const char *kPictureFile = "./zenrinCGI/zenrin.gif";
/// The value of a column without a picture: a single zero byte.
constexpr const char *kNoPicture = "0x00";
constexpr std::size_t kPieceSize = 65536;

/// The text after "でエラー" for the failed step of the start.
const char *stepSuffix(ConnectStep step)
{
    switch (step) {
    case ConnectStep::settingsFile:
        return "：cIni初期化";
    case ConnectStep::sessionInit:
        return "：m_cADOTo初期化";
    case ConnectStep::connect:
        return "：m_cADOTo接続";
    case ConnectStep::emptyText:
    case ConnectStep::connected:
        break;
    }
    return "";
}

std::string headingOf(const std::string &name)
{
    return name + "() でエラー";
}

// Only the first of the three pictures is ever filled.
std::string insertMap(Branch branch, std::int32_t nIDNo, const std::string &picture)
{
    const std::string none = std::string("     , ") + kNoPicture;
    return "  INSERT INTO  RIYOUSHA_MAP (  iKyotenCd,  iKyotenEb,  nIDNo,  bAddr1,  bAddr2,  bAddr3,"
           "  dTimeStamp ) VALUES (       " +
           std::to_string(branch.iKyotenCd) + "     , " + std::to_string(branch.iKyotenEb) + "     , " +
           std::to_string(nIDNo) + "     , " + picture + none + none + "     , getdate())";
}

std::string updateMap(Branch branch, std::int32_t nIDNo, const std::string &picture)
{
    return "  UPDATE  RIYOUSHA_MAP  set " + (picture == kNoPicture ? std::string() : "      bAddr1 = " + picture) +
           "      ,dTimeStamp = getdate()  WHERE nIDNo =" + std::to_string(nIDNo) +
           "  and iKyotenCd =" + std::to_string(branch.iKyotenCd) +
           "  and iKyotenEb =" + std::to_string(branch.iKyotenEb);
}

} // namespace

CorpMap::CorpMap(App &app) : m_app(app), m_table(app, TableShape{"RIYOUSHA_MAP"}) {}

bool CorpMap::isPictureThere() const
{
    Files &files = m_app.platform.files;
    return !files.isFolder(kPictureFile) && !files.directorySearch(kPictureFile).empty();
}

/// Shows a run-time error under the operation's name and keeps its text as every table does.
template <class Operation> std::int16_t CorpMap::reported(const std::string &name, Operation &&operation)
{
    return m_table.trapped([&] {
        try {
            return static_cast<std::int16_t>(operation());
        } catch (const RuntimeError &error) {
            headingBox(m_app, headingOf(name), numberedText(error));
            throw;
        }
    });
}

std::int16_t CorpMap::connect(const std::string &name)
{
    m_cADOTo = {}; // ends the session of the previous operation
    m_cADOTo = startSession(m_app);
    if (!m_cADOTo.isConnected()) {
        headingBox(m_app, headingOf(name) + stepSuffix(m_cADOTo.step), m_cADOTo.csErrMsg);
        return m_table.failed(m_cADOTo.csErrMsg);
    }
    m_table.init(*m_cADOTo.session);
    return iGood;
}

void CorpMap::iChizuLoad(const std::int32_t &nIDNo, std::int16_t &iStatus)
{
    iStatus = reported("iChizuLoad", [&] {
        if (connect("iChizuLoad") != iGood) return iBad;
        const Branch branch = branchOf(m_app);
        bool isThere = false;
        const std::int16_t status = m_table.walk(
            "  select *  from RIYOUSHA_MAP  where  nIDNo=" + std::to_string(nIDNo) + "  and iKyotenCd=" +
                std::to_string(branch.iKyotenCd) + "  and iKyotenEb=" + std::to_string(branch.iKyotenEb),
            [] {}, [&](const Recordset &) { isThere = true; });
        return status == iGood && !isThere ? kNoSuchMap : status;
    });
}

void CorpMap::iChizuSave(const std::int32_t &nIDNo, std::int16_t &iStatus)
{
    iStatus = write("iChizuSave", nIDNo, insertMap);
}

void CorpMap::iChizuUpdate(const std::int32_t &nIDNo, std::int16_t &iStatus)
{
    iStatus = write("iChizuUpdate", nIDNo, updateMap);
}

std::int16_t CorpMap::write(const std::string &name, std::int32_t nIDNo, Statement statement)
{
    return reported(name, [&] {
        if (nIDNo != kMapTakeOnly && checkWriter(name) != iGood) return iBad;
        const std::string picture = takePicture();
        if (nIDNo == kMapTakeOnly) return iGood;
        if (connect(name) != iGood) return iBad;
        // A failure leaves the transaction open; it ends with the connection.
        const std::int16_t status =
            m_table.write(statement(branchOf(m_app), nIDNo, picture), Transaction::ownUntilDisconnect);
        static_cast<void>(m_cADOTo.session->iDisConnect()); // the write has already succeeded or failed
        return status;
    });
}

/// Checks that the database accepts a writer, by starting and ending a transaction. Without this check a refusal would
/// come after the picture file is deleted. A database with several concurrent writers gets no additional statement.
std::int16_t CorpMap::checkWriter(const std::string &name)
{
    if (!m_app.platform.database.isWriterBusy()) return iGood;
    if (connect(name) != iGood) return iBad;
    cT_ADODB &session = *m_cADOTo.session;
    const std::int16_t status = session.iBeginTrans() == iGood ? iGood : m_table.failed(session.sErrMsg());
    static_cast<void>(session.iDisConnect()); // ends the transaction as well
    return status;
}

/// Reads the picture's file as a binary value and deletes the file; an empty file counts as no picture.
std::string CorpMap::takePicture() const
{
    if (!isPictureThere()) return kNoPicture;
    std::string digits;
    {
        const std::unique_ptr<InputFile> file = m_app.platform.files.openForInput(kPictureFile);
        for (std::string piece = file->read(kPieceSize); !piece.empty(); piece = file->read(kPieceSize))
            appendHex(digits, piece);
    }
    m_app.platform.files.remove(kPictureFile);
    return digits.empty() ? kNoPicture : "0x" + digits;
}

std::int16_t CorpMap::withWords(std::int16_t iStatus, std::string &sErrMsg) const
{
    if (iStatus != iGood) sErrMsg = m_table.sErrMsg();
    return iStatus;
}

std::int16_t CorpMap::saveForCompany(std::string &sErrMsg)
{
    std::int16_t iStatus = iBad;
    iChizuSave(kMapOfCompany, iStatus);
    return withWords(iStatus, sErrMsg);
}

std::int16_t CorpMap::saveOrUpdateForCompany(std::string &sErrMsg)
{
    if (!isPictureThere()) return iGood;
    std::int16_t iStatus = iBad;
    iChizuLoad(kMapOfCompany, iStatus);
    if (iStatus == kNoSuchMap)
        iChizuSave(kMapOfCompany, iStatus);
    else
        iChizuUpdate(kMapOfCompany, iStatus); // also after a failed load
    return withWords(iStatus, sErrMsg);
}

} // namespace inin
