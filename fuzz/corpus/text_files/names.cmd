; names
40001 l LINE;
40003	circle c;
-7 minus;99999999999 big
;
40002 arc