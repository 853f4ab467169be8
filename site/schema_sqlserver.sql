-- Tables of a demo database on SQL Server. The columns are those of schema_sqlite.sql; a real site's server holds more.
-- Every text column has the usual Japanese collation, which tells neither case nor width nor kana apart, whatever the
-- database's own is. Long remarks are NVARCHAR(MAX), numbers of telephones and the like VARCHAR.
-- Nearly every table carries the branch (iKyotenCd, iKyotenEb); nIDNo numbers a row within one branch.

-- The patients. nTantou to nTantou10 are numbers of STAFF, nDairiID the number of the agent in CORP, cHokenNo the
-- insurer's cIDno.
CREATE TABLE RIYOUSHA (
    iKyotenCd INT NOT NULL, iKyotenEb INT NOT NULL, nIDNo INT NOT NULL,
    -- the patient; tExpireDay is the day on which the treatment ended, NULL while it goes on
    cName NVARCHAR(100) COLLATE Japanese_CI_AS, cNameRyaku NVARCHAR(100) COLLATE Japanese_CI_AS,
    cNameKana NVARCHAR(100) COLLATE Japanese_CI_AS, iSex SMALLINT, tExpireDay DATETIME,
    -- insurance numbers; cHokenNo finds the insurer
    cCityNo NVARCHAR(100) COLLATE Japanese_CI_AS, cJukyuNo NVARCHAR(100) COLLATE Japanese_CI_AS,
    cHokenKigouNo NVARCHAR(100) COLLATE Japanese_CI_AS, cHokenKigouNo2 NVARCHAR(100) COLLATE Japanese_CI_AS,
    cHokenNo NVARCHAR(100) COLLATE Japanese_CI_AS, cHokenNo2 NVARCHAR(100) COLLATE Japanese_CI_AS,
    cFutanNo NVARCHAR(100) COLLATE Japanese_CI_AS, tBirthday DATETIME,
    -- the patient's home
    cYubinNo VARCHAR(60) COLLATE Japanese_CI_AS, cAdress1 NVARCHAR(200) COLLATE Japanese_CI_AS,
    cAdress2 NVARCHAR(200) COLLATE Japanese_CI_AS, cAddressKana NVARCHAR(200) COLLATE Japanese_CI_AS,
    cTelNo VARCHAR(60) COLLATE Japanese_CI_AS, cFaxNo VARCHAR(60) COLLATE Japanese_CI_AS,
    cMobNo VARCHAR(60) COLLATE Japanese_CI_AS,
    -- the householder
    cSetaiName NVARCHAR(100) COLLATE Japanese_CI_AS, cSetaiKana NVARCHAR(100) COLLATE Japanese_CI_AS,
    iSetaiSex SMALLINT, cSetaiYubinNo VARCHAR(60) COLLATE Japanese_CI_AS,
    cSetaiAdress1 NVARCHAR(200) COLLATE Japanese_CI_AS, cSetaiAdress2 NVARCHAR(200) COLLATE Japanese_CI_AS,
    cSetaiAddKana NVARCHAR(100) COLLATE Japanese_CI_AS, cSetaiTelNo VARCHAR(60) COLLATE Japanese_CI_AS,
    cSetaiFaxNo VARCHAR(60) COLLATE Japanese_CI_AS, cSetaiMobNo VARCHAR(60) COLLATE Japanese_CI_AS,
    cSetaiTsuzuki NVARCHAR(100) COLLATE Japanese_CI_AS,
    tSetaiBirthday DATETIME,
    -- the place on the map and the distance of a visit with its corrections
    iTikuNo INT, nHokui INT, nToukei INT, iHoseUmu INT, nLenFix INT, nLenInp INT,
    nLenAdd INT, nHoseLen INT, iHoseCol INT, iHoseCut INT, iVisitFlg INT, iOuryoCalType INT,
    -- staff in charge, illness, shares
    nTantou INT, nTantou2 INT, nTantou3 INT, nTantou4 INT, nTantou5 INT,
    cByoumei NVARCHAR(100) COLLATE Japanese_CI_AS, iKaigoLevel INT, iFutanritsu INT, iV INT, iSys INT,
    -- parts of the body under treatment and the kinds of massage treatment, with their periods
    iSejutuBui1 INT, iSejutuBui2 INT, iSejutuBui3 INT, iSejutuBui4 INT, iSejutuBui5 INT,
    iHenke SMALLINT, iOnan SMALLINT, iDenki SMALLINT,
    iSejutuBui11 INT, iSejutuBui12 INT, iSejutuBui13 INT, iSejutuBui14 INT, iSejutuBui15 INT,
    iOnan1 INT, iDenki1 INT,
    tHenkeSday DATETIME, tHenKeEday DATETIME, tOnanSday DATETIME, tOnanEday DATETIME,
    tDenkiSday DATETIME, tDenkiEday DATETIME,
    -- course of the illness; tHatsubyou and tSyoryoDay are texts in spite of their names
    iPtype INT, iGyoumuUmu INT, cGeninKeika NVARCHAR(MAX) COLLATE Japanese_CI_AS,
    tHatsubyou NVARCHAR(100) COLLATE Japanese_CI_AS, tSyoryoDay NVARCHAR(100) COLLATE Japanese_CI_AS,
    tSyosinDay DATETIME,
    tStartDay DATETIME, tKHkigen DATETIME,
    cHTno NVARCHAR(100) COLLATE Japanese_CI_AS, tHTStartDay DATETIME, cHTRiyuu NVARCHAR(MAX) COLLATE Japanese_CI_AS,
    cHTIryoName NVARCHAR(100) COLLATE Japanese_CI_AS, cHTIryoYubin VARCHAR(60) COLLATE Japanese_CI_AS,
    cHTIryoAdd NVARCHAR(200) COLLATE Japanese_CI_AS,
    -- two doctors' consents
    cDouiIsiName1 NVARCHAR(100) COLLATE Japanese_CI_AS, cDouiIsiKikan1 NVARCHAR(100) COLLATE Japanese_CI_AS,
    cDouiIsiAdd1 NVARCHAR(100) COLLATE Japanese_CI_AS, cDouiByoumei1 NVARCHAR(100) COLLATE Japanese_CI_AS,
    tDouiDay1 DATETIME, tDouiKaryoS1 DATETIME, tDouiKaryoE1 DATETIME,
    cDouiIsiName2 NVARCHAR(100) COLLATE Japanese_CI_AS, cDouiIsiKikan2 NVARCHAR(100) COLLATE Japanese_CI_AS,
    cDouiIsiAdd2 NVARCHAR(100) COLLATE Japanese_CI_AS, cDouiByoumei2 NVARCHAR(100) COLLATE Japanese_CI_AS,
    tDouiDay2 DATETIME, tDouiKaryoS2 DATETIME, tDouiKaryoE2 DATETIME,
    -- the certifier, the agent, the applicant
    cSyoumeiName NVARCHAR(100) COLLATE Japanese_CI_AS, cSyoumeiYubin VARCHAR(60) COLLATE Japanese_CI_AS,
    cSyoumeiAdd NVARCHAR(200) COLLATE Japanese_CI_AS, cSyoumeiTel VARCHAR(60) COLLATE Japanese_CI_AS,
    tSyoumeiDay DATETIME,
    nDairiID INT,
    cSinseiName NVARCHAR(100) COLLATE Japanese_CI_AS, cSinseiYubin VARCHAR(60) COLLATE Japanese_CI_AS,
    cSinseiAdd NVARCHAR(200) COLLATE Japanese_CI_AS, cSinseiTel VARCHAR(60) COLLATE Japanese_CI_AS, tSinseiDay DATETIME,
    cSinseiAtena NVARCHAR(100) COLLATE Japanese_CI_AS,
    iSeiKyuKubun INT, iTenki INT, cTekiyou NVARCHAR(MAX) COLLATE Japanese_CI_AS,
    cBikou NVARCHAR(MAX) COLLATE Japanese_CI_AS, iHoken INT,
    -- the patient's own bank account
    iKinSyubetsu INT, cKinName NVARCHAR(100) COLLATE Japanese_CI_AS, iKinSiten INT,
    cKinSiten NVARCHAR(100) COLLATE Japanese_CI_AS, iKozaSyubetsu INT, cKozaNo NVARCHAR(100) COLLATE Japanese_CI_AS,
    cKozaName NVARCHAR(100) COLLATE Japanese_CI_AS, cKozaKana NVARCHAR(100) COLLATE Japanese_CI_AS, iKozaKubun INT,
    cComment NVARCHAR(MAX) COLLATE Japanese_CI_AS, cYotei NVARCHAR(MAX) COLLATE Japanese_CI_AS, iPcnt INT,
    -- insured person's name, disability certificate
    cHokenJname NVARCHAR(100) COLLATE Japanese_CI_AS, cHokenJname2 NVARCHAR(100) COLLATE Japanese_CI_AS, iSyogai INT,
    cSyogaiNo NVARCHAR(100) COLLATE Japanese_CI_AS, cSyogaiJu NVARCHAR(100) COLLATE Japanese_CI_AS,
    cSyogaiFname NVARCHAR(100) COLLATE Japanese_CI_AS,
    iSejutsuKubun INT,
    -- acupuncture and moxibustion, with their periods
    nHKSyobyouCd INT, cHKSyobyouName NVARCHAR(100) COLLATE Japanese_CI_AS, iHKSyokaiHiyo INT, iHKHariUmu INT,
    iHKKyuUmu INT,
    iHKDekiUmu INT,
    tHKHariSday DATETIME, tHKHariEday DATETIME, tHKKyuSday DATETIME, tHKKyuEday DATETIME,
    tHKDenkiSday DATETIME, tHKDenkiEday DATETIME,
    iHKHari1Umu INT, iHKKyu1Umu INT, iHKDeki1Umu INT,
    -- second periods
    tHenkeSday2 DATETIME, tHenKeEday2 DATETIME, tOnanSday2 DATETIME, tOnanEday2 DATETIME,
    tDenkiSday2 DATETIME, tDenkiEday2 DATETIME,
    tHKHariSday2 DATETIME, tHKHariEday2 DATETIME, tHKKyuSday2 DATETIME, tHKKyuEday2 DATETIME,
    tHKDenkiSday2 DATETIME, tHKDenkiEday2 DATETIME,
    -- renewal of the consent, permits, rooms, shares of the patient, further staff
    tDouishoSaishutokuFrom DATETIME, tDouishoSaishutokuTo DATETIME, iOuryouKyoka INT, nRoomNo INT,
    iRoomAnbunUmu INT, cHokenJSubAddress NVARCHAR(200) COLLATE Japanese_CI_AS,
    cSyogaiFSubAddress NVARCHAR(200) COLLATE Japanese_CI_AS, iJikofutanKubun INT,
    nJikofutanTanka INT, nTantou6 INT, nTantou7 INT, nTantou8 INT, nTantou9 INT,
    nTantou10 INT, cFMCode INT,
    PRIMARY KEY (iKyotenCd, iKyotenEb, nIDNo)
);

-- The insurers, shared by all branches. A number that came twice would double a patient's letters.
CREATE TABLE HOKENJA (
    cIDno NVARCHAR(40) COLLATE Japanese_CI_AS NOT NULL PRIMARY KEY, cName NVARCHAR(100) COLLATE Japanese_CI_AS,
    cSubAddress NVARCHAR(200) COLLATE Japanese_CI_AS, iType INT
);

-- Planned visits; nDate is year * 10000 + month * 100 + day. A patient may have two on one day.
CREATE TABLE SCHEDULE (
    iKyotenCd INT NOT NULL, iKyotenEb INT NOT NULL, nIDRiyoushaNo INT, nIDStaffNo INT, nDate INT
);
-- The last planned visit of a patient within a month: one step to the end of the range.
CREATE INDEX SCHEDULE_PATIENT ON SCHEDULE (iKyotenCd, iKyotenEb, nIDRiyoushaNo, nDate);
-- All planned visits of a day.
CREATE INDEX SCHEDULE_DAY ON SCHEDULE (iKyotenCd, iKyotenEb, nDate);

-- Actual visits; tServicyDayStart is the moment at which the visit began.
CREATE TABLE JISSEKI (
    iKyotenCd INT NOT NULL, iKyotenEb INT NOT NULL, nRiyoushaIDNo INT, nStaffIDNo INT,
    tServicyDayStart DATETIME
);
-- As for the planned visits: the last one of a patient, and all of a day.
CREATE INDEX JISSEKI_PATIENT ON JISSEKI (iKyotenCd, iKyotenEb, nRiyoushaIDNo, tServicyDayStart);
CREATE INDEX JISSEKI_DAY ON JISSEKI (iKyotenCd, iKyotenEb, tServicyDayStart);

-- Side table of a patient; iDantaiUmu 1 marks group billing. Its key is the way from the patient.
CREATE TABLE RIYOUSHA_SUB (
    iKyotenCd INT NOT NULL, iKyotenEb INT NOT NULL, nIDNo INT NOT NULL, iDantaiUmu SMALLINT,
    PRIMARY KEY (iKyotenCd, iKyotenEb, nIDNo)
);

-- The companies of a branch; iType 0 is the head office, 1 and 2 are agents, 3 is the group-billing company.
CREATE TABLE CORP (
    iKyotenCd INT NOT NULL, iKyotenEb INT NOT NULL,
    cAddress1 NVARCHAR(200) COLLATE Japanese_CI_AS, cAddress2 NVARCHAR(200) COLLATE Japanese_CI_AS,
    cAddressKana NVARCHAR(200) COLLATE Japanese_CI_AS, cDaihyo NVARCHAR(100) COLLATE Japanese_CI_AS,
    cDaihyoKana NVARCHAR(100) COLLATE Japanese_CI_AS, cFaxNo VARCHAR(60) COLLATE Japanese_CI_AS,
    cKinyuName NVARCHAR(100) COLLATE Japanese_CI_AS, cKinyuSiten NVARCHAR(100) COLLATE Japanese_CI_AS,
    cKozaBangou NVARCHAR(100) COLLATE Japanese_CI_AS, cKozaKana NVARCHAR(100) COLLATE Japanese_CI_AS,
    cKozaMeigi1 NVARCHAR(100) COLLATE Japanese_CI_AS, cKozaMeigi2 NVARCHAR(100) COLLATE Japanese_CI_AS,
    cShamei1 NVARCHAR(100) COLLATE Japanese_CI_AS, cShamei2 NVARCHAR(100) COLLATE Japanese_CI_AS,
    cShameiKana1 NVARCHAR(100) COLLATE Japanese_CI_AS, cShameiKana2 NVARCHAR(100) COLLATE Japanese_CI_AS,
    cTelNo VARCHAR(60) COLLATE Japanese_CI_AS, cYubinNo VARCHAR(60) COLLATE Japanese_CI_AS,
    iKinSiten INT, iKinSyubetsu INT, iKozaKubun INT, iKozaType INT, iType INT,
    nIDNo INT NOT NULL, nLat INT, nLon INT, cPcName NVARCHAR(100) COLLATE Japanese_CI_AS, tUpDateTime DATETIME,
    cKinyuNo NVARCHAR(100) COLLATE Japanese_CI_AS, cKinyuSitenNo NVARCHAR(100) COLLATE Japanese_CI_AS,
    cJigyousyoNo NVARCHAR(100) COLLATE Japanese_CI_AS, cJigyousyoNo2 NVARCHAR(100) COLLATE Japanese_CI_AS,
    cJigyouReceiptName NVARCHAR(100) COLLATE Japanese_CI_AS,
    cMailDestination NVARCHAR(100) COLLATE Japanese_CI_AS, cMailDestinationZipNo NVARCHAR(100) COLLATE Japanese_CI_AS,
    cHokenTourokuKubetsu NVARCHAR(100) COLLATE Japanese_CI_AS, cPersonalNumberCorp NVARCHAR(100) COLLATE Japanese_CI_AS,
    iKyotenToshiNo INT, cKokuhoTourokuNo NVARCHAR(100) COLLATE Japanese_CI_AS,
    cEmail NVARCHAR(100) COLLATE Japanese_CI_AS,
    PRIMARY KEY (iKyotenCd, iKyotenEb, nIDNo)
);
-- Head office and group-billing company are looked up by kind, once for each letter.
CREATE INDEX CORP_TYPE ON CORP (iKyotenCd, iKyotenEb, iType);

-- Practitioners and other employees; iChusiFlg 0 or NULL is active. Lists go by branch, in order of nIDNo: the key.
CREATE TABLE STAFF (
    iKyotenCd INT NOT NULL, iKyotenEb INT NOT NULL,
    cAdress1 NVARCHAR(200) COLLATE Japanese_CI_AS, cAdress2 NVARCHAR(200) COLLATE Japanese_CI_AS,
    cFaxNo VARCHAR(60) COLLATE Japanese_CI_AS, cKaiNo NVARCHAR(100) COLLATE Japanese_CI_AS,
    cKaiNo2 NVARCHAR(100) COLLATE Japanese_CI_AS, cKaiNo3 NVARCHAR(100) COLLATE Japanese_CI_AS,
    cMobNo VARCHAR(60) COLLATE Japanese_CI_AS,
    cName NVARCHAR(100) COLLATE Japanese_CI_AS, cNameKana NVARCHAR(100) COLLATE Japanese_CI_AS,
    cNameRyaku NVARCHAR(100) COLLATE Japanese_CI_AS, cRken NVARCHAR(100) COLLATE Japanese_CI_AS,
    cRno NVARCHAR(100) COLLATE Japanese_CI_AS, cTelNo VARCHAR(60) COLLATE Japanese_CI_AS,
    cYubinNo VARCHAR(60) COLLATE Japanese_CI_AS,
    iChusiFlg SMALLINT, iSexKubun SMALLINT, iShikakuKubun INT, iSyokushuKubun INT, iYaku INT,
    nIDNo INT NOT NULL, cEmail NVARCHAR(100) COLLATE Japanese_CI_AS, iTecAbi INT, iSpeechAbi INT,
    cPhysical NVARCHAR(100) COLLATE Japanese_CI_AS, iClaimRate INT,
    cSikaku NVARCHAR(100) COLLATE Japanese_CI_AS, cTourokuNo NVARCHAR(100) COLLATE Japanese_CI_AS,
    cSmileCd NVARCHAR(100) COLLATE Japanese_CI_AS,
    tBirthday DATETIME, tKousinDay DATETIME, tNyusyaDay DATETIME, tKisanDay DATETIME, tRday DATETIME,
    tTourokuDay DATETIME, cPcName NVARCHAR(100) COLLATE Japanese_CI_AS, tUpDateTime DATETIME,
    cTourokuNo2 NVARCHAR(100) COLLATE Japanese_CI_AS,
    iVehicleType INT, cVehicleNumber NVARCHAR(100) COLLATE Japanese_CI_AS,
    cVehicleComment NVARCHAR(MAX) COLLATE Japanese_CI_AS, cEmployeeNumber NVARCHAR(100) COLLATE Japanese_CI_AS,
    iLookAllRiyousya INT, iWebLicense INT, iLookCharge INT, iStaffHokenTouroku INT,
    cShikaiNo NVARCHAR(100) COLLATE Japanese_CI_AS, cShikaiNo_Josei NVARCHAR(100) COLLATE Japanese_CI_AS,
    iContractType INT, nLat INT, nLon INT,
    cIninTourokuNo NVARCHAR(100) COLLATE Japanese_CI_AS, iIninTourokuChk INT, iKanriSekininFlg INT,
    PRIMARY KEY (iKyotenCd, iKyotenEb, nIDNo)
);

-- The branches.
CREATE TABLE KYOTEN (
    iKyotenCd INT NOT NULL, iKyotenEb INT NOT NULL, cKyotenName NVARCHAR(100) COLLATE Japanese_CI_AS,
    PRIMARY KEY (iKyotenCd, iKyotenEb)
);

-- Insurance kinds, a short code table that is always read whole.
CREATE TABLE HOKEN (
    iKyotenCd INT, iKyotenEb INT, cName NVARCHAR(100) COLLATE Japanese_CI_AS,
    cRyaku NVARCHAR(100) COLLATE Japanese_CI_AS, cType NVARCHAR(100) COLLATE Japanese_CI_AS, iType INT
);

-- Claim forms; print types 0 and 1 are system-wide and stand under branch 0, 0.
CREATE TABLE SHINSEISYO (
    iKyotenCd INT NOT NULL, iKyotenEb INT NOT NULL, nIDNo INT NOT NULL, cFileName NVARCHAR(100) COLLATE Japanese_CI_AS,
    cDispName NVARCHAR(100) COLLATE Japanese_CI_AS,
    iSejutsuKubun INT, iHokenType INT, iDelFlg SMALLINT, iSinseiTP INT, iSoufushoTP INT,
    iDuplexFlg INT, iStateNo INT, iRiyouHokenKbn INT, tUpDateTime DATETIME, iPrintType INT NOT NULL,
    iKubun INT, iKanagawaStaffPrint INT, iJoseiFutanKiriage INT, iTekiyouStaff INT,
    PRIMARY KEY (iKyotenCd, iKyotenEb, iPrintType, nIDNo)
);

-- Official fees; the dates are texts YYYY/MM/DD.
CREATE TABLE 療養費単価 (
    cStartDate NVARCHAR(100) COLLATE Japanese_CI_AS, cEndDate NVARCHAR(100) COLLATE Japanese_CI_AS, iTankaKbn INT,
    nTankaCode INT, nTanka INT
);

-- Bands of the visit charge; nMaxLen is inclusive, in metres.
CREATE TABLE 往療費区分 (
    cStartDate NVARCHAR(100) COLLATE Japanese_CI_AS, cEndDate NVARCHAR(100) COLLATE Japanese_CI_AS, nKingakuOuryou INT,
    nMaxLen INT
);

-- Map pictures; nIDNo 0 stands for the company.
CREATE TABLE RIYOUSHA_MAP (
    iKyotenCd INT NOT NULL, iKyotenEb INT NOT NULL, nIDNo INT NOT NULL,
    bAddr1 VARBINARY(MAX), bAddr2 VARBINARY(MAX), bAddr3 VARBINARY(MAX), dTimeStamp DATETIME,
    PRIMARY KEY (iKyotenCd, iKyotenEb, nIDNo)
);

-- Which staff member is in charge of a consultation; one consultation may have several.
CREATE TABLE SOUDAN_TANTOU (
    nIDNo INT, iStaffKyotenCd INT, iStaffKyotenEb INT, nStaffIDNo INT
);
CREATE INDEX SOUDAN_TANTOU_STAFF ON SOUDAN_TANTOU (iStaffKyotenCd, iStaffKyotenEb, nStaffIDNo);
