var playlist = [
"Sunday set","3,1,4,#",
"Winter evening","5,8,7,#",
"Recital","2,6,4,1,#",
 ];
