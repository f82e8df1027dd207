FileHeader "KVT Object Text v2.01","Coordinate Document"
begin
	FileInfo "Application","Golden version 1.0"
	FileInfo "Description","a \"quoted\" \\ text\n"
end
PointList 
begin
	Point "P1",6783172.777,531279.279,,"121","R","12,5"
	begin
		AttributeList 
		begin
			Attribute "COLOR","255"
			Attribute "Date","20190423.153005"
		end
	end
	Point "\tP2",-0.25,5.000000000000000e-01,?,"","B","100.0"
	Point "P3",nan,-inf,0x1p-3,"C","C","1,5,2"
	point
end
LineList 
begin
	Line "L1",1,"KERB"
	begin
		PointList 
		begin
			Point "1",1,2,3,"A","","r"
			Point "2",1e308,-1e-308,2.2250738585072014e-308,"A","","r"
		end
		AttributeList 
		begin
			Attribute "COLOR","-1"
		end
	end
	Line "L2",0,""
end
AttributeList 
begin
	Attribute "COLOR","16711680"
	Attribute "Crew",""
end
