"""zeapi url: addresses of support pages."""

import program_case


class Url(program_case.ProgramCase):
    def test_web_addresses(self):
        url = self.answer("url", "path", "drivers", "--printer", "0", "--language", "3")["url"]
        self.assertTrue(url.endswith("/NA/drivers/3/8"), url)
        self.run_program("url", "path", "drivers", "--printer", "2", exit_code=44)
        self.write("web.ini", b"[AREA]\nDRIVERS=\n")
        url = self.answer("url", "path", "drivers", "--ini", "web.ini")["url"]
        self.assertTrue(url.endswith("/NA/0"), url)
        self.run_program("url", "path", "drivers", "--ini", "none.ini", exit_code=3)
        url = self.answer(
            "url", "query", "techsupport", "--family", "1", "--model", "2", "--language-id", "1031"
        )["url"]
        self.assertIn("/MD/?func=support&lang=2&prtr=B001002&ctry=", url)


if __name__ == "__main__":
    program_case.main()
