-- Branch 1-1 for the pick lists: active staff and one ended member, patients under treatment and ended ones.

INSERT INTO STAFF (iKyotenCd, iKyotenEb, nIDNo, cName, cNameKana, cNameRyaku, iChusiFlg) VALUES
    (1, 1, 11, '佐藤 花子', 'ｻﾄｳ ﾊﾅｺ', '佐藤', 0),
    (1, 1, 12, '鈴木 次郎', 'スズキ ジロウ', '鈴木', NULL),
    (1, 1, 13, '田中 三郎', 'ﾀﾅｶ ｻﾌﾞﾛｳ', '田中', 1),
    (2, 1, 11, 'よその人', 'ﾖｿ', 'よそ', 0);

INSERT INTO HOKEN (iKyotenCd, iKyotenEb, cName, cRyaku, cType, iType) VALUES (0, 0, '国民健康保険', '国保', '国保', 1);
INSERT INTO HOKENJA (cIDno, cName, cSubAddress, iType) VALUES ('270017', '大阪市', '北区', 1);
INSERT INTO CORP (iKyotenCd, iKyotenEb, nIDNo, iType, cShamei1) VALUES (1, 1, 1, 0, 'みどり訪問治療株式会社');

-- 4 ended before the limit month of April, 5 during it. 8 has only a number.
INSERT INTO RIYOUSHA (iKyotenCd, iKyotenEb, nIDNo, cName, cNameKana, cNameRyaku, cTelNo, cAdress1, cAdress2, cHokenNo,
                      nTantou, nTantou2, nTantou5, iSejutsuKubun, tExpireDay) VALUES
    (1, 1, 1, '青木 一郎', 'ｱｵｷ ｲﾁﾛｳ', '天神橋', '06-1234-0001', '大阪市北区天神橋１－１', 'コーポ青空２０１', '270017',
     11, NULL, NULL, 0, NULL),
    (1, 1, 2, '髙橋 﨑子', 'ﾀｶﾊｼ ｻｷｺ', '中崎', '06-1234-0002', '大阪市北区中崎２－２', NULL, '270017',
     11, 12, NULL, 1, NULL),
    (1, 1, 3, '山田 三郎', 'やまだ さぶろう', '泉町  ', '06-1234-0003', '吹田市泉町３－３', '', '270017',
     11, NULL, 12, 0, NULL),
    (1, 1, 4, '山田 四郎', 'ﾔﾏﾀﾞ ｼﾛｳ', '泉町', '06-1234-0004', '吹田市泉町４－４', NULL, '270017',
     12, NULL, NULL, 0, '2024-03-10 00:00:00'),
    (1, 1, 5, '山多 五月', 'ヤマタ サツキ', '本町', '06-1234-0005', '豊中市本町５－５', NULL, '270017',
     13, NULL, NULL, 1, '2024-04-20 00:00:00'),
    (1, 1, 8, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL),
    (2, 1, 1, 'よその患者', 'ﾖｿﾉｶﾝｼﾞﾔ', '高松', '087-0', '高松市', NULL, '270017', 11, NULL, NULL, 0, NULL);

INSERT INTO SCHEDULE (iKyotenCd, iKyotenEb, nIDRiyoushaNo, nIDStaffNo, nDate) VALUES
    (1, 1, 1, 11, 20240520), (1, 1, 2, 11, 20240521), (1, 1, 3, 12, 20240522);
