<?php

declare(strict_types=1);

namespace Zorvel\Tools\Bundle;

use Zorvel\Folders as ViewFolders;
use Zorvel\Tools\Template\Folders;

/** Makes a bundle of the templates in some folders, the same bytes of the same templates. */
final readonly class Bundler
{
    private const string HEAD = "<?php\n\n// Made by \"zorvel bundle\" for Zorvel\View::bundled(). Change the templates, and make it again.\n\nreturn [\n";

    /** @var array<array-key, string> the files of the templates by name: of the first folder that has one */
    public array $files;

    private Splicer $splicer;

    /**
     * @param list<string> $paths the folders
     * @param list<string> $extensions of the files that are templates
     */
    public function __construct(array $paths, array $extensions)
    {
        $files = [];
        foreach ($paths as $path) {
            $folder = new Folders([$path], $extensions);
            foreach ($folder->templatesAt($folder->paths[0]) as $file) {
                $files[$folder->nameOf($file)] ??= $file;
            }
        }
        ksort($files, SORT_STRING);
        $this->files = $files;
        $this->splicer = new Splicer(new ViewFolders($paths));
    }

    /** @return list<BundledText> those of the files that a view finds */
    public function texts(): array
    {
        $texts = [];
        foreach (array_map(strval(...), array_keys($this->files)) as $name) {
            $pieces = $this->splicer->pieces($name);
            array_push($texts, ...($pieces === [] ? [] : [new BundledText($name, $pieces)]));
        }

        return $texts;
    }

    /** @param list<BundledText> $texts */
    public static function php(array $texts): string
    {
        return self::HEAD . implode('', array_map(static fn(BundledText $text): string => $text->php(), $texts)) . "];\n";
    }
}
