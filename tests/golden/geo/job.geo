FileHeader "KVT Object Text v2.01","Coordinate Document"
begin
	FileInfo "Application","Golden version 1.0"
	FileInfo "SerialNo","4711"
	FileInfo "Author","Surveyor"
	FileInfo "Company","Company"
	FileInfo "Description","road 7, km 3"
	FileInfo "Coordinate System","local"
end
PointList 
begin
	Point "1001",6500000.5,150000.25,12,"FIX","",""
	Point "1002",6500012.125,150021.75,,"TREE","R","12.5"
	begin
		AttributeList 
		begin
			Attribute "COLOR","3"
			Attribute "Date","20190423.153005"
		end
	end
	Point "Gränd 4",6500001,-150000,-2.500000000000000e-01,"MH","","cover \"old\", C:\\7"
end
LineList 
begin
	Line "12",1,"KERB"
	begin
		PointList 
		begin
			Point "1",6500001,150001,12.345,"K","R","25"
			Point "2",6500002.001,150011.5,12.5,"K","",""
			Point "3",6500003,150001,1.250000000000000e-03,"K","",""
		end
	end
	Line "13",0,""
	begin
		PointList 
	end
end
AttributeList 
begin
	Attribute "COLOR","255"
end
