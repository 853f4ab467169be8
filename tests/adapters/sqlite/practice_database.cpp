#include "adapters/sqlite/practice_database.h"

#include "support/file_bytes.h"

namespace inin::sqlite {

namespace {

constexpr const char *kRows = R"sql(
-- The second patient's insurer number stands in full width with a blank behind it: it is the same number.
INSERT INTO HOKENJA (cIDno, cName, cSubAddress, iType) VALUES ('01130012', '高松市', '高松', 1), ('06', '全国協会', NULL, 2);
INSERT INTO RIYOUSHA (iKyotenCd, iKyotenEb, nIDNo, cName, cNameKana, cNameRyaku, cTelNo, cAdress1, cAdress2, tBirthday,
    tExpireDay, cHokenNo, iHoken, nDairiID, nTantou, nTantou2, nTantou3, nTantou4, nTantou5, iSejutsuKubun, cSetaiName,
    cSetaiTelNo, cSetaiAdress1, tHatsubyou) VALUES
 (1,1,1,'山田太郎','ﾔﾏﾀﾞ ﾀﾛｳ','中央','087-111-1111','高松市番町1','','1936-02-29 00:00:00',NULL,'01130012',1,2,5,NULL,NULL,NULL,NULL,0,'山田一郎','087-1','高松市',' 2023/1/1'),
 (1,1,2,'鈴木花子','すずき はなこ',NULL,NULL,'高松市天神前2',NULL,'1940-05-01','2024-03-31 00:00:00','０１１３００１２ ',1,2,3,5,NULL,NULL,NULL,1,NULL,NULL,NULL,NULL),
 (1,1,3,'佐藤次郎','サトウ ジロウ','','','','',NULL,NULL,'99999999',1,2,5,NULL,NULL,NULL,NULL,0,'','','',NULL),
 (1,2,1,'別拠点','ベツ','','','','',NULL,NULL,'01130012',1,2,5,NULL,NULL,NULL,NULL,0,'','','',NULL),
 (1,1,5,'田中三郎','ﾀﾅｶ ｻﾌﾞﾛｳ','','','','',NULL,NULL,'06',2,99,4,NULL,NULL,NULL,5,0,'','','',NULL),
 (1,1,6,'やまた四郎','やまた','','','','',NULL,'2024-05-20','06',2,2,4,NULL,NULL,NULL,NULL,0,'','','',NULL);
INSERT INTO RIYOUSHA_SUB (iKyotenCd, iKyotenEb, nIDNo, iDantaiUmu) VALUES (1,1,2,1), (1,1,1,NULL), (1,1,5,0);
INSERT INTO SCHEDULE (iKyotenCd, iKyotenEb, nIDRiyoushaNo, nIDStaffNo, nDate) VALUES (1,1,1,5,20240510), (1,1,1,7,20240520), (1,1,2,5,20240531), (1,1,2,5,20240604),
    (1,1,3,5,20240531), (1,2,1,5,20240531), (1,1,6,4,20240531), (1,1,6,4,20240500), (1,1,5,4,20240430);
INSERT INTO JISSEKI (iKyotenCd, iKyotenEb, nRiyoushaIDNo, nStaffIDNo, tServicyDayStart) VALUES (1,1,1,5,'2024-05-10 09:00:00'), (1,1,1,7,'2024-05-31 23:59:59'), (1,1,1,7,'2024-06-01 00:00:00'),
    (1,1,2,5,'2024-05-01'), (1,1,6,4,'2024-05-31 00:00:00'), (1,1,6,4,'2024-05-31 00:00:00'), (1,1,5,4,'2024-04-30 09:00:00');
INSERT INTO CORP (iKyotenCd, iKyotenEb, nIDNo, iType, cShamei1, cAddress1, cDaihyo, cTelNo, cKinyuName, cKinyuSiten,
    iKozaType, cKozaBangou, cKozaMeigi1, iKinSyubetsu, iKinSiten, tUpDateTime) VALUES
 (1,1,0,0,'本社','高松市1','代表','087-0','百十四','本店',1,'1234567','ホンシャ',1,1,'2024-04-01 10:20:30'),
 (1,1,2,1,'代理人','高松市2','代理','087-2','中国','高松',2,'7654321','ダイリ',2,2,NULL),
 (1,1,9,3,'団体','高松市9','団長','087-9','郵便','高松',1,'9999999','ダンタイ',4,5,NULL),
 (1,2,0,0,'別の本社',NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL);
INSERT INTO STAFF (iKyotenCd, iKyotenEb, nIDNo, cName, cNameKana, iChusiFlg, tBirthday, cNameRyaku) VALUES
 (1,1,3,'施術三子','せじゅつ みつこ',0,'1980-05-01 00:00:00','三子'),
 (1,1,4,'施術四郎','ｾｼﾞｭﾂ ｼﾛｳ',NULL,NULL,NULL),
 (1,1,5,'中止五郎','チュウシ ゴロウ',1,NULL,NULL),
 (1,2,3,'別拠点の者','ベツ',0,NULL,NULL);
INSERT INTO KYOTEN (iKyotenCd, iKyotenEb, cKyotenName) VALUES (1,1,'高松'), (1,2,'丸亀');
INSERT INTO HOKEN (iKyotenCd, iKyotenEb, cName, cRyaku, cType, iType) VALUES (1,1,'国民健康保険','国','国保',2), (1,1,'協会けんぽ','協','社保',1), (1,1,NULL,NULL,NULL,NULL);
INSERT INTO SHINSEISYO (iKyotenCd, iKyotenEb, nIDNo, cFileName, iDelFlg, iStateNo, iPrintType) VALUES
 (0,0,1,'a.wfd',NULL,37,1), (0,0,2,'b.wfd',1,37,1), (1,1,1,'c.wfd',0,0,2);
INSERT INTO SOUDAN_TANTOU (nIDNo, iStaffKyotenCd, iStaffKyotenEb, nStaffIDNo) VALUES (8,1,1,4), (9,1,2,3);
INSERT INTO 療養費単価 (cStartDate, cEndDate, iTankaKbn, nTankaCode, nTanka) VALUES ('2018/10/01','2019/09/30',1,2,340), ('2018/10/01','2019/09/30',1,1,338),
    ('2019/10/01','2024/05/31',1,1,350), ('2017/01/01','2018/09/30',1,1,300);
INSERT INTO 往療費区分 (cStartDate, cEndDate, nKingakuOuryou, nMaxLen) VALUES ('2018/10/01','2019/09/30',2700,4000), ('2018/10/01','2019/09/30',2300,2000);
)sql";

} // namespace

const std::string &practiceDatabase()
{
    static const std::string kStatements = bytesOf(pathOf(ININ_SITE "/schema_sqlite.sql")) + kRows;
    return kStatements;
}

} // namespace inin::sqlite
