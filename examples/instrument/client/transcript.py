"""A client that prints what it sends and what is answered."""

import visa_client


class Transcript:
    """Talks to the instrument, and shows how it goes."""

    def __init__(self, resource):
        self._resource = resource

    def title(self, text):
        print(f"\n{text}")

    def write(self, command):
        print(f"  > {command}")
        self._resource.write(command)

    def query(self, command):
        self.write(command)
        answer = self._resource.read()
        print(f"  < {answer}")
        return answer

    def query_doubles(self, command):
        print(f"  > {command}")
        values = visa_client.query_doubles(self._resource, command)
        print(f"  < (a block of {len(values)} values: {values[0]:.4f}, {values[1]:.4f} ...)")
        return values

    def query_text_block(self, command):
        print(f"  > {command}")
        text = visa_client.query_block(self._resource, command).decode("ascii")
        for line in text.splitlines()[:3]:
            print(f"  < {line}")
        return text
